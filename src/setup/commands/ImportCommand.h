#pragma once

#include "data/Catalogue.h"
#include "database/Database.h"
#include "setup/commands/Console.h"
#include "setup/storage/ForeignTables.h"

namespace setup {

/// Maps the columns of a foreign table to those of a suite table by name, ignoring letter case.
class ColumnMap {
  public:
    ColumnMap(const TableDefinition& table, const QStringList& columns);
    /// The row as a parenthesised list of SQL literals in the order of the suite's columns, NULL for columns that the
    /// foreign table lacks. Throws platform::RuntimeError if the number of values is wrong.
    QString Literals(const QStringList& row) const;

  private:
    QString table_;
    qsizetype columns_;
    QList<qsizetype> places_;
};

/// Replaces the rows of every table in a general database with those of the foreign tables of the same names, ignoring
/// letter case. Columns unknown to the suite are skipped and reported, missing columns become Null and are reported.
/// Counts and prints the rows of each table. Runs in one transaction: nothing changes on failure. Throws
/// platform::RuntimeError; one error names all tables that `origin` lacks.
void ImportTables(const ForeignTables& tables, const QString& origin, database::Connection& general,
                  const Console& console);

}  // namespace setup
