#include "platform/AtomicFile.h"

#include <QFileInfo>

#include "platform/PlainFile.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

/// %1 is for the path.
QString UnreadableReason(FileRead result) {
    if (result == FileRead::Missing) return u"%1 がありません。"_s;
    return result == FileRead::NotPlain ? u"%1 はファイルではありません。"_s : u"%1 を読めません。"_s;
}

}  // namespace

AtomicFile::AtomicFile(const QString& path, Links links) : file_(path), links_(links) {}

bool AtomicFile::Fail(const QString& reason) {
    error_ = reason;
    return false;
}

bool AtomicFile::Open() {
    const QFileInfo target(file_.fileName());
    if (links_ == Links::Refuse && target.isSymLink()) return Fail(u"リンクは置き換えません。"_s);
    if (target.exists() && !target.isFile()) return Fail(u"ファイルではありません。"_s);
    return file_.open(QIODevice::WriteOnly);
}

bool AtomicFile::Commit() {
    // QSaveFile::commit() ignores errors when it flushes its buffer and syncs.
    if (!file_.flush()) return false;
    if (!SyncFile(file_.handle())) return Fail(u"ディスクに書き込めません。"_s);
    if (!file_.commit()) return false;
    // The path may be a link; the file has been renamed in the folder of its target.
    const QString folder = QFileInfo(QFileInfo(file_.fileName()).canonicalFilePath()).path();
    return SyncFolder(folder) || Fail(u"ディスクに書き込めません。"_s);
}

bool ReplaceFile(const QString& path, QByteArrayView content, QString& error) {
    AtomicFile file(path);
    if (file.Open() && file.Write(content) && file.Commit()) return true;
    error = file.ErrorText();
    return false;
}

bool ReplaceByCopy(const QString& source, AtomicFile& target, QFileDevice::Permissions permissions) {
    QFile from;
    const FileRead opened = OpenPlainFile(source, from);
    if (opened != FileRead::Done) return target.Fail(UnreadableReason(opened).arg(source));
    if (!target.Open()) return false;
    constexpr qint64 kBlock = 1 << 20;
    for (;;) {
        const QByteArray block = from.read(kBlock);
        if (from.error() != QFileDevice::NoError) return target.Fail(UnreadableReason(FileRead::Failed).arg(source));
        if (!target.Write(block)) return false;
        if (block.isEmpty()) break;
    }
    return (permissions == QFileDevice::Permissions() || target.SetPermissions(permissions)) && target.Commit();
}

}  // namespace platform
