#pragma once

#include "data/Catalogue.h"

// DDL statements generated from the catalogue.

namespace setup {

QString CreateTableStatement(const TableDefinition& table);
QString AddColumnStatement(const TableDefinition& table, const ColumnDefinition& column);

/// Name of a table's secondary index; `number` counts from 0.
QString IndexName(const TableDefinition& table, int number);
QString CreateIndexStatement(const TableDefinition& table, int number);

}  // namespace setup
