#include "platform/AtomicFile.h"

#include <QFileInfo>

#include "platform/PlainFile.h"

using namespace Qt::StringLiterals;

namespace platform {

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
    const QString folder = QFileInfo(file_.fileName()).path();
    return file_.commit() && (SyncFolder(folder) || Fail(u"ディスクに書き込めません。"_s));
}

bool ReplaceFile(const QString& path, QByteArrayView content, QString& error) {
    AtomicFile file(path);
    if (file.Open() && file.Write(content) && file.Commit()) return true;
    error = file.ErrorText();
    return false;
}

bool ReplaceByCopy(const QString& source, AtomicFile& target, QFileDevice::Permissions permissions) {
    QFile from;
    if (OpenPlainFile(source, from) != FileRead::Done || !target.Open()) return false;
    constexpr qint64 kBlock = 1 << 20;
    for (;;) {
        const QByteArray block = from.read(kBlock);
        if (from.error() != QFileDevice::NoError || !target.Write(block)) return false;
        if (block.isEmpty()) break;
    }
    return (permissions == QFileDevice::Permissions() || target.SetPermissions(permissions)) && target.Commit();
}

}  // namespace platform
