#include "setup/PinSealing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>

#include "platform/FileRights.h"
#include "platform/SealedPins.h"
#include "setup/GeneralDatabase.h"
#include "setup/Installer.h"
#include "setup/PinColumns.h"
#include "setup/SqliteFile.h"

using namespace Qt::StringLiterals;
using platform::PinKey;
using platform::SqliteDatabase;
using platform::SqliteStatement;

namespace setup {

namespace {

struct StoredPin {
    sqlite3_int64 row;
    QString text;
};

QList<StoredPin> StoredPins(sqlite3* database, const PinColumn& place) {
    const SqliteStatement rows =
        PrepareSql(database, u"SELECT rowid, \"%1\" FROM \"%2\" WHERE \"%1\" <> ''"_s.arg(place.column, place.table));
    QList<StoredPin> pins;
    while (NextRow(database, rows.get())) pins.append({sqlite3_column_int64(rows.get(), 0), ColumnText(rows.get(), 1)});
    return pins;
}

void SealColumn(sqlite3* database, const PinColumn& place, const PinKey& key, SealedCount& count) {
    const SqliteStatement update =
        PrepareSql(database, u"UPDATE \"%2\" SET \"%1\" = ? WHERE rowid = ?"_s.arg(place.column, place.table));
    for (const StoredPin& pin : StoredPins(database, place)) {
        if (platform::IsSealedPin(pin.text)) {
            ++(platform::OpenPin(pin.text, key) ? count.before : count.unopenable);
            continue;
        }
        BindText(update.get(), 1, platform::SealPin(pin.text, key));
        sqlite3_bind_int64(update.get(), 2, pin.row);
        NextRow(database, update.get());
        sqlite3_reset(update.get());
        ++count.sealed;
    }
}

PinKey KeyOf(const QString& keyFile) {
    if (const std::optional<PinKey> key = PinKey::Read(keyFile)) return *key;
    throw platform::RuntimeError(1, u"鍵ファイル %1 を読めません。"_s.arg(keyFile));
}

bool GiveToGroupOfFolder(const QString& keyFile) {
    const std::optional<platform::FileRights> folder = platform::RightsOf(QFileInfo(keyFile).canonicalPath());
    const std::optional<platform::FileRights> key = platform::RightsOf(keyFile);
    return folder && key && platform::SetRights(keyFile, folder->group, key->mode);
}

/// The group of the folder has to read it, whatever group this user's files get by default.
void MakeKey(const QString& keyFile) {
    const bool written = PinKey().Write(keyFile);
    if (written && GiveToGroupOfFolder(keyFile)) return;
    if (written) QFile::remove(keyFile);
    throw platform::RuntimeError(1, u"鍵ファイル %1 を作成できません。"_s.arg(keyFile));
}

/// Path of the general database by the row that the programs open it by.
QString GeneralFile(const QString& configuration) {
    const std::optional<GeneralDatabaseDefinition> definition = FindDefinition(configuration);
    if (!definition || definition->db != u"A"_s)
        throw Refusal(u"一般データベースがファイルではないので、暗証番号を封じられません。"_s);
    return platform::SqlitePath(definition->データソース名);
}

/// In one transaction. `newKey` tells whether the key file was made for it.
SealedCount SealAll(sqlite3* database, const QString& keyFile, bool& newKey) {
    // Otherwise the clear texts would stay readable in the free places of the file.
    RunSql(database, u"PRAGMA secure_delete = ON"_s);
    // Before the look at the key file: of two sealings at once the second waits here and finds the key of the first.
    RunSql(database, u"BEGIN IMMEDIATE"_s);
    if (!QFile::exists(keyFile)) {
        MakeKey(keyFile);
        newKey = true;
    }
    const PinKey key = KeyOf(keyFile);
    SealedCount count;
    for (const PinColumn& place : kPinColumns) SealColumn(database, place, key, count);
    RunSql(database, u"COMMIT"_s);
    return count;
}

bool AnyOpens(sqlite3* database, const PinKey& key) {
    for (const PinColumn& place : kPinColumns)
        for (const StoredPin& pin : StoredPins(database, place))
            if (platform::OpenPin(pin.text, key)) return true;
    return false;
}

/// A COMMIT that told a failure may stand all the same, where the disk did it and its answer got lost; and another
/// sealing may have found the key meanwhile. So the key goes only when it is certain that no PIN needs it.
void ForgetUnusedKey(const QString& generalFile, const QString& keyFile) {
    try {
        const SqliteDatabase database = OpenSqlite(generalFile, platform::ConnectMode::ReadWrite);
        RunSql(database.get(), u"BEGIN IMMEDIATE"_s);
        if (!AnyOpens(database.get(), KeyOf(keyFile))) QFile::remove(keyFile);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

}  // namespace

SealedCount SealStoredPins(const QString& generalFile, const QString& keyFile) {
    SqliteDatabase database = OpenSqlite(generalFile, platform::ConnectMode::ReadWrite);
    bool newKey = false;
    try {
        return SealAll(database.get(), keyFile, newKey);
    } catch (const platform::RuntimeError&) {
        const bool stillLocked = sqlite3_get_autocommit(database.get()) == 0;
        if (newKey && stillLocked) QFile::remove(keyFile);
        database.reset();
        if (newKey && !stillLocked) ForgetUnusedKey(generalFile, keyFile);
        throw;
    }
}

void SealPins(const Arguments& arguments, const Console& console) {
    const QString root = QDir::cleanPath(QDir(arguments.installation).absolutePath());
    const QString configuration = ConfigurationFile(root + u"/conf"_s);
    if (configuration.isEmpty()) throw Refusal(u"%1 にインストールがありません。"_s.arg(root));
    const SealedCount count =
        SealStoredPins(GeneralFile(configuration), root + u"/conf/"_s + platform::PinKeyFileName());
    console.out << u"暗証番号 %1 件を封じました。既に封じてあったもの %2 件。\n"_s.arg(count.sealed).arg(count.before);
    if (count.unopenable > 0)
        console.out << u"別の鍵で封じられていて開けないものが %1 件あり、そのまま残しました。\n"_s.arg(
            count.unopenable);
}

}  // namespace setup
