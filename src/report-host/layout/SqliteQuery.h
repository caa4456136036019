#pragma once

#include <QStringList>
#include <functional>

#include "database/sqlite/SqliteHandle.h"

namespace report {

/// A name between the engine's quotes.
QString QuotedName(const QString& name);

/// Prepares one statement and binds the texts to its places in order. Throws database::DatabaseError.
database::SqliteStatement PrepareStatement(sqlite3* database, const QString& sql, const QStringList& texts = {});

/// Runs it to its end and calls `row` for each row. Throws database::DatabaseError.
void EachRow(sqlite3* database, sqlite3_stmt* statement, const std::function<void()>& row);

/// A value of the current row as text; Null is empty.
QString TextOf(sqlite3_stmt* statement, int column);

/// Columns of a table or view in their order; empty where there is no such table.
QStringList ColumnsOf(sqlite3* database, const QString& table);

}  // namespace report
