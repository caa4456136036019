// Part of OpenSqlite.h: WalReadingOf, NameWithoutLocks and IsWithoutLocks.

#include "database/sqlite/OpenSqlite.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include "platform/PlainFile.h"

namespace database {
namespace {

constexpr qsizetype kReadVersionPlace = 19;  // offset in the file's header
constexpr char kWalVersion = 2;

bool IsInWalMode(const QString& path) {
    QFile file(path);
    if (!platform::OpenPlainFile(file, QIODevice::Unbuffered)) return false;
    const QByteArray header = file.read(kReadVersionPlace + 1);
    return header.size() > kReadVersionPlace && header[kReadVersionPlace] == kWalVersion;
}

}  // namespace

WalReading WalReadingOf(const QString& path) {
    if (!IsInWalMode(path)) return WalReading::Ordinary;
    const QFileInfo wal(path + QStringLiteral("-wal"));
    if (wal.size() == 0) return WalReading::WithoutLocks;
    return QFileInfo::exists(path + QStringLiteral("-shm")) ? WalReading::Ordinary : WalReading::Refused;
}

QByteArray NameWithoutLocks(const QString& path) {
    return QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded) + "?immutable=1";
}

bool IsWithoutLocks(sqlite3* database) {
    return sqlite3_uri_boolean(sqlite3_db_filename(database, "main"), "immutable", 0) != 0;
}

}  // namespace database
