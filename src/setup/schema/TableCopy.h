#pragma once

#include "data/Catalogue.h"
#include "database/Database.h"
#include "setup/commands/Console.h"

namespace setup {

/// Copies all rows of a table to the table of the same name and columns on another connection, by statements of many
/// rows, tells how far it is, and compares the counts at the end. Columns that the source lacks become Null. Throws
/// database::DatabaseError, and RuntimeError where the counts differ.
void CopyTable(database::Connection& source, database::Connection& target, const TableDefinition& table,
               const Console& console);

/// Rows of a table.
qint64 CountRows(database::Connection& connection, const QString& table);

/// The beginning of an INSERT that adds rows to a table, up to the first row's bracket.
QString InsertHead(const TableDefinition& table);

}  // namespace setup
