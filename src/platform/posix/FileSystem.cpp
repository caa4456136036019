#include "platform/FileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>

#include "platform/AtomicFile.h"
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

[[noreturn]] void ThrowFolderFailure(int code) {
    for (const FolderFailure& failure : kFolderFailures)
        if (failure.code == code) throw RuntimeError(failure.number, QString::fromUtf8(failure.description));
    throw RuntimeError(kPathFailure, QString::fromLocal8Bit(std::strerror(code)));
}

}  // namespace

QString NativePath(const QString& path) {
    if (!path.contains(u'\\') || QFileInfo::exists(path)) return path;
    return QString(path).replace(u'\\', u'/');
}

bool LocalFileSystem::FileExists(const QString& path) const { return QFileInfo(path).isFile(); }

bool LocalFileSystem::CopyFile(const QString& source, const QString& target) const {
    AtomicFile copy(target, AtomicFile::Links::Refuse);
    return ReplaceByCopy(source, copy);
}

bool LocalFileSystem::RemoveFile(const QString& path) const { return QFile::remove(path) || !QFileInfo::exists(path); }

bool LocalFileSystem::FolderExists(const QString& path) const { return QFileInfo(NativePath(path)).isDir(); }

void LocalFileSystem::CreateFolder(const QString& path) const {
    if (::mkdir(QFile::encodeName(NativePath(path)).constData(), 0777) != 0) ThrowFolderFailure(errno);
}

bool LocalFileSystem::CreateMark(const QString& path) const {
    const QByteArray name = QFile::encodeName(path);
    const int mark = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (mark >= 0) return ::close(mark) == 0;
    struct stat state = {};
    return errno == EEXIST && ::lstat(name.constData(), &state) == 0 && S_ISREG(state.st_mode) &&
           state.st_uid == ::geteuid();
}

std::unique_ptr<OutputFile> LocalFileSystem::OpenForOutput(const QString& path) const {
    return OutputFile::Open(NativePath(path));
}

}  // namespace platform
