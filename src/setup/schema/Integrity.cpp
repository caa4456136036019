#include "setup/schema/Integrity.h"

#include <QFile>
#include <algorithm>

#include "database/sqlite/SqliteQuery.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

bool ConcernsIndex(const QString& error) {
    return error.contains(u" missing from index "_s) || error.contains(u"wrong # of entries in index "_s) ||
           error.contains(u"non-unique entry in index "_s);
}

}  // namespace

bool NeedsRecovery(const QString& path) {
    switch (database::WalReadingOf(path)) {
        case database::WalReading::Refused:
            return true;
        case database::WalReading::WithoutLocks:
            return false;
        default:
            break;
    }
    sqlite3* handle = nullptr;
    const int opened = sqlite3_open_v2(QFile::encodeName(path).constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    const database::SqliteDatabase file(handle);
    if (opened != SQLITE_OK) return false;
    sqlite3_extended_result_codes(handle, 1);
    return database::RunPlain(handle, "SELECT COUNT(*) FROM sqlite_schema") == SQLITE_READONLY_ROLLBACK;
}

Integrity IntegrityOf(const QString& path) {
    const database::SqliteDatabase file = database::OpenSqliteFile(path, database::ConnectMode::Read);
    Integrity integrity;
    try {
        const auto rows = database::PrepareSql(file.get(), u"PRAGMA integrity_check(10)"_s);
        while (database::NextRow(rows.get())) integrity.errors.append(database::ColumnText(rows.get(), 0));
    } catch (const database::DatabaseError& error) {
        integrity.errors.append(error.Description());
    }
    if (integrity.errors == QStringList{u"ok"_s}) integrity.errors.clear();
    integrity.onlyIndexes = std::all_of(integrity.errors.begin(), integrity.errors.end(), ConcernsIndex);
    return integrity;
}

void RebuildIndexes(const QString& path) {
    const database::SqliteDatabase file = database::OpenSqliteFile(path, database::ConnectMode::ReadWrite);
    database::RunSql(file.get(), u"REINDEX"_s);
}

}  // namespace setup
