#pragma once

#include <QString>

#include "database/sqlite/OpenSqlite.h"

// Direct SQLite access for operations that only the set-up tool needs, such as altering tables and encrypting PINs. All
// procedures throw database::DatabaseError with the engine's message.

namespace setup {

/// Opens an existing file.
database::SqliteDatabase OpenSqlite(const QString& file, database::ConnectMode mode);
void RunSql(sqlite3* database, const QString& sql);
database::SqliteStatement PrepareSql(sqlite3* database, const QString& sql);
/// Steps to the next row; False at the end.
bool NextRow(sqlite3* database, sqlite3_stmt* statement);
/// Text of a column of the current row, empty for Null.
QString ColumnText(sqlite3_stmt* row, int column);
/// `index` counts from 1.
void BindText(sqlite3_stmt* statement, int index, const QString& text);

}  // namespace setup
