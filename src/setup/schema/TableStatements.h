#pragma once

#include "data/Catalogue.h"

// The statements that make what the catalogue tells.

namespace setup {

/// A name in the engine's quotes.
QString QuotedName(const QString& name);
QString QuotedNames(const QStringList& names);

QString CreateTableStatement(const TableDefinition& table);
QString AddColumnStatement(const TableDefinition& table, const ColumnDefinition& column);

/// Name of a table's further index, counted from 0.
QString IndexName(const TableDefinition& table, int number);
QString CreateIndexStatement(const TableDefinition& table, int number);

}  // namespace setup
