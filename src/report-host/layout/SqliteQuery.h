#pragma once

#include <QStringList>
#include <functional>

#include "database/sqlite/SqliteHandle.h"

namespace report {

/// Quotes an identifier for SQLite.
QString QuotedName(const QString& name);

/// Prepares a statement and binds `texts` to its parameters in order. Throws database::DatabaseError.
database::SqliteStatement PrepareStatement(sqlite3* database, const QString& sql, const QStringList& texts = {});

/// Executes the statement to the end and calls `row` for each row. Throws database::DatabaseError.
void EachRow(sqlite3* database, sqlite3_stmt* statement, const std::function<void()>& row);

/// Column of the current row as text; Null as empty text. Throws database::DatabaseError if memory runs out.
QString TextOf(sqlite3_stmt* statement, int column);

/// Column names of a table or view, in order; empty if it does not exist. Throws database::DatabaseError.
QStringList ColumnsOf(sqlite3* database, const QString& table);

}  // namespace report
