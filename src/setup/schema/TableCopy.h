#pragma once

#include <QTextStream>

#include "data/Catalogue.h"
#include "database/Database.h"
#include "setup/storage/JetFile.h"

namespace setup {

/// Copies all rows of a table to the table of the same name on another connection with multi-row INSERTs, prints
/// progress, and compares the counts at the end. Columns that the source lacks become Null. Throws
/// database::DatabaseError, and RuntimeError if the counts differ.
void CopyTable(database::Connection& source, database::Connection& target, const TableDefinition& table,
               QTextStream& out);

/// Number of rows in a table. Throws database::DatabaseError.
qint64 CountRows(database::Connection& connection, const QString& table);

/// INSERT statement up to the first row's parenthesis.
QString InsertHead(const TableDefinition& table);

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
/// platform::RuntimeError; one error names all missing tables. `origin`: path of the foreign file, for that message.
void ImportTables(const ForeignTables& tables, const QString& origin, database::Connection& general, QTextStream& out);

}  // namespace setup
