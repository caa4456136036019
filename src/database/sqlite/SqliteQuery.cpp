#include "database/sqlite/SqliteQuery.h"

#include "platform/Utf8Text.h"

namespace database {

SqliteDatabase OpenSqliteFile(const QString& path, ConnectMode mode) {
    ConnectionRequest request;
    request.dataSource = path;
    request.mode = mode;
    return OpenSqliteFile(request);
}

void RunSql(sqlite3* database, const QString& sql) {
    if (RunPlain(database, sql.toUtf8().constData()) != SQLITE_OK) throw SqliteFailure(database);
}

SqliteStatement PrepareSql(sqlite3* database, const QString& sql, const QStringList& texts) {
    const QByteArray utf8 = sql.toUtf8();
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(database, utf8.constData(), static_cast<int>(utf8.size()), &raw, nullptr) != SQLITE_OK)
        throw SqliteFailure(database);
    SqliteStatement statement(raw);
    for (qsizetype i = 0; i < texts.size(); ++i) BindText(raw, static_cast<int>(i) + 1, texts[i]);
    return statement;
}

void BindText(sqlite3_stmt* statement, int index, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    // On an out-of-memory error SQLite would silently bind Null.
    if (sqlite3_bind_text(statement, index, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT) !=
        SQLITE_OK)
        throw SqliteFailure(sqlite3_db_handle(statement));
}

bool NextRow(sqlite3_stmt* statement) {
    const int result = sqlite3_step(statement);
    if (result != SQLITE_ROW && result != SQLITE_DONE) throw SqliteFailure(sqlite3_db_handle(statement));
    return result == SQLITE_ROW;
}

QString ColumnText(sqlite3_stmt* row, int column) {
    const bool null = sqlite3_column_type(row, column) == SQLITE_NULL;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    if (text == nullptr && !null) throw SqliteFailure(sqlite3_db_handle(row));
    return platform::TextFromUtf8({text, sqlite3_column_bytes(row, column)});
}

}  // namespace database
