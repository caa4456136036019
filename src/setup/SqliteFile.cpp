#include "setup/SqliteFile.h"

namespace setup {

platform::SqliteDatabase OpenSqlite(const QString& file, platform::ConnectMode mode) {
    platform::ConnectionRequest request;
    request.dataSource = file;
    request.mode = mode;
    return platform::OpenSqliteFile(request);
}

void RunSql(sqlite3* database, const QString& sql) {
    if (platform::RunPlain(database, sql.toUtf8().constData()) != SQLITE_OK) throw platform::SqliteFailure(database);
}

platform::SqliteStatement PrepareSql(sqlite3* database, const QString& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        throw platform::SqliteFailure(database);
    return platform::SqliteStatement(statement);
}

bool NextRow(sqlite3* database, sqlite3_stmt* statement) {
    const int result = sqlite3_step(statement);
    if (result != SQLITE_ROW && result != SQLITE_DONE) throw platform::SqliteFailure(database);
    return result == SQLITE_ROW;
}

QString ColumnText(sqlite3_stmt* row, int column) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row, column)),
                             sqlite3_column_bytes(row, column));
}

void BindText(sqlite3_stmt* statement, int index, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_bind_text(statement, index, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

}  // namespace setup
