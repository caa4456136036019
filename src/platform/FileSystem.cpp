#include "platform/FileSystem.h"

#include <sys/stat.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <cstring>

#include "platform/PlainFile.h"
#include "platform/RuntimeError.h"

namespace platform {
namespace {

struct FolderFailure {
    int code;
    long number;
    const char* description;
};

constexpr FolderFailure kFolderFailures[] = {
    {ENOENT, 76, "パスが見つかりません。"},         {ENOTDIR, 76, "パスが見つかりません。"},
    {EEXIST, 58, "同じ名前のファイルがあります。"}, {EACCES, 70, "書き込む権限がありません。"},
    {EPERM, 70, "書き込む権限がありません。"},      {EROFS, 70, "書き込みが禁止されています。"},
    {ENOSPC, 61, "ディスクの空きがありません。"},   {EDQUOT, 61, "ディスクの割り当てを使い切りました。"},
};
constexpr long kPathFailure = 75;

[[noreturn]] void RaiseFolderFailure(int code) {
    for (const FolderFailure& failure : kFolderFailures)
        if (failure.code == code) throw RuntimeError(failure.number, QString::fromUtf8(failure.description));
    throw RuntimeError(kPathFailure, QString::fromLocal8Bit(std::strerror(code)));
}

}  // namespace

QString NativePath(const QString& path) {
    if (!path.contains(u'\\') || QFileInfo::exists(path)) return path;
    return QString(path).replace(u'\\', u'/');
}

bool HostFileSystem::FileExists(const QString& path) const { return QFileInfo(path).isFile(); }

bool HostFileSystem::CopyFile(const QString& source, const QString& target) const {
    QFile from(source);
    QSaveFile to(target);  // appears under its name only when it is whole
    if (!OpenPlainFile(from) || !to.open(QIODevice::WriteOnly)) return false;
    constexpr qint64 kBlock = 1 << 20;
    while (!from.atEnd()) {
        const QByteArray block = from.read(kBlock);
        if (block.isEmpty() || to.write(block) != block.size()) return false;
    }
    return from.error() == QFileDevice::NoError && to.commit();
}

bool HostFileSystem::RemoveFile(const QString& path) const { return QFile::remove(path) || !QFileInfo::exists(path); }

bool HostFileSystem::FolderExists(const QString& path) const { return QFileInfo(NativePath(path)).isDir(); }

void HostFileSystem::CreateFolder(const QString& path) const {
    if (::mkdir(QFile::encodeName(NativePath(path)).constData(), 0777) != 0) RaiseFolderFailure(errno);
}

std::unique_ptr<OutputFile> HostFileSystem::OpenForOutput(const QString& path) const {
    return OutputFile::Open(NativePath(path));
}

}  // namespace platform
