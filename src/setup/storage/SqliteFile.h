#pragma once

#include <QString>

#include "database/sqlite/OpenSqlite.h"

// The set-up tool's own way into a database file, where the programs' contract does not reach: they alter no table and
// never write the general database. All procedures throw database::DatabaseError with the engine's words.

namespace setup {

/// Opens an existing file.
database::SqliteDatabase OpenSqlite(const QString& file, database::ConnectMode mode);
void RunSql(sqlite3* database, const QString& sql);
database::SqliteStatement PrepareSql(sqlite3* database, const QString& sql);
/// Steps to the next row; false at the end.
bool NextRow(sqlite3* database, sqlite3_stmt* statement);
/// Text of a column of the present row, empty for a Null.
QString ColumnText(sqlite3_stmt* row, int column);
/// `index` counts from 1.
void BindText(sqlite3_stmt* statement, int index, const QString& text);

}  // namespace setup
