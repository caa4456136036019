#pragma once

#include "data/Catalogue.h"
#include "platform/Database.h"
#include "setup/Console.h"

namespace setup {

/// Copies all rows of a table to the table of the same name and columns on another connection, by statements of many
/// rows, tells how far it is, and compares the counts at the end. Columns that the source lacks become Null. Throws
/// platform::DatabaseError, and RuntimeError where the counts differ.
void CopyTable(platform::Connection& source, platform::Connection& target, const TableDefinition& table,
               const Console& console);

/// Rows of a table.
qint64 CountRows(platform::Connection& connection, const QString& table);

/// The beginning of an INSERT that adds rows to a table, up to the first row's bracket.
QString InsertHead(const TableDefinition& table);

}  // namespace setup
