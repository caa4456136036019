#pragma once

#include <QString>
#include <QStringList>

#include "database/sqlite/OpenSqlite.h"

// Direct access to a SQLite file, for statements in the engine's own SQL: for the setup tool, the report host and
// LookupCache. All procedures throw DatabaseError, with the engine's message for a failed statement.

namespace database {

/// Opens an existing file; see OpenSqliteFile(const ConnectionRequest&).
SqliteDatabase OpenSqliteFile(const QString& path, ConnectMode mode);

/// Runs statements without parameters to their end.
void RunSql(sqlite3* database, const QString& sql);
/// Prepares one statement and binds `texts` to its first parameters.
SqliteStatement PrepareSql(sqlite3* database, const QString& sql, const QStringList& texts = {});
/// Binds a text to a parameter; `index` counts from 1.
void BindText(sqlite3_stmt* statement, int index, const QString& text);
/// Steps to the next row; false at the end.
bool NextRow(sqlite3_stmt* statement);
/// Text of a column of the current row, empty for Null; `column` counts from 0.
QString ColumnText(sqlite3_stmt* row, int column);

}  // namespace database
