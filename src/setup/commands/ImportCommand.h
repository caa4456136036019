#pragma once

#include "data/Catalogue.h"
#include "database/Database.h"
#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"
#include "setup/storage/ForeignTables.h"

namespace setup {

/// Which column of a foreign table fills which column of the suite's table, by name without regard to letter case.
class ColumnMap {
  public:
    ColumnMap(const TableDefinition& table, const QStringList& columns);
    /// The row as an SQL list of literals in brackets, in the order of the suite's columns; Null where the foreign
    /// table has no such column. Throws platform::RuntimeError for a row of another number of columns.
    QString Literals(const QStringList& row) const;

  private:
    QString table_;
    qsizetype columns_;
    QList<qsizetype> places_;
};

/// Replaces the rows of every table of a general database by those of other tables, which are found by their names
/// without regard to letter case. Columns that the suite does not know are left out and reported, and missing ones
/// become Null and are reported. The rows of each table are counted. It is one transaction: after a failure nothing has
/// changed. Throws platform::RuntimeError, which names all tables that `origin` lacks.
void ImportTables(const ForeignTables& tables, const QString& origin, database::Connection& general,
                  const Console& console);

/// The verb: the general database is an installation's, and the tables are those of a Jet or ACE file, which a process
/// with limits reads. Throws UsageError and platform::RuntimeError.
void ImportGeneral(const Arguments& arguments, const Console& console);

}  // namespace setup
