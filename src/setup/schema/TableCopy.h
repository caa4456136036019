#pragma once

#include "data/Catalogue.h"
#include "database/Database.h"
#include "setup/commands/Console.h"

namespace setup {

/// Copies all rows of a table to the table of the same name on another connection with multi-row INSERTs, prints
/// progress, and compares the counts at the end. Columns that the source lacks become Null. Throws
/// database::DatabaseError, and RuntimeError if the counts differ.
void CopyTable(database::Connection& source, database::Connection& target, const TableDefinition& table,
               const Console& console);

/// Number of rows in a table. Throws database::DatabaseError.
qint64 CountRows(database::Connection& connection, const QString& table);

/// INSERT statement up to the first row's parenthesis.
QString InsertHead(const TableDefinition& table);

}  // namespace setup
