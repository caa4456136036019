#include "setup/storage/SqliteFile.h"

#include "platform/Utf8Text.h"

namespace setup {

database::SqliteDatabase OpenSqlite(const QString& file, database::ConnectMode mode) {
    database::ConnectionRequest request;
    request.dataSource = file;
    request.mode = mode;
    return database::OpenSqliteFile(request);
}

void RunSql(sqlite3* database, const QString& sql) {
    if (database::RunPlain(database, sql.toUtf8().constData()) != SQLITE_OK) throw database::SqliteFailure(database);
}

database::SqliteStatement PrepareSql(sqlite3* database, const QString& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        throw database::SqliteFailure(database);
    return database::SqliteStatement(statement);
}

bool NextRow(sqlite3* database, sqlite3_stmt* statement) {
    const int result = sqlite3_step(statement);
    if (result != SQLITE_ROW && result != SQLITE_DONE) throw database::SqliteFailure(database);
    return result == SQLITE_ROW;
}

QString ColumnText(sqlite3_stmt* row, int column) {
    const bool null = sqlite3_column_type(row, column) == SQLITE_NULL;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    if (text == nullptr && !null) throw database::SqliteFailure(sqlite3_db_handle(row));
    return platform::TextFromUtf8({text, sqlite3_column_bytes(row, column)});
}

void BindText(sqlite3_stmt* statement, int index, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    // On an out-of-memory error SQLite would silently bind Null.
    if (sqlite3_bind_text(statement, index, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT) !=
        SQLITE_OK)
        throw database::SqliteFailure(sqlite3_db_handle(statement));
}

}  // namespace setup
