#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "database/Database.h"

// The suite's tables. The programs do not create or alter tables; the setup tool creates all of them from this
// catalogue.

/// The database of a table: General gnrdb or a server, Configuration usrcnfg, Report repdb (work tables of reports),
/// Forms repfrmdb (report templates).
enum class DatabaseKind { General, Configuration, Report, Forms };

struct ColumnDefinition {
    QString name;
    QString type;  ///< always TEXT, also for codes, dates and numbers: the suite compares them as text
};

struct TableDefinition {
    DatabaseKind store;  ///< the database that contains the table
    QString name;
    QList<ColumnDefinition> columns;  ///< in the order in which the suite writes them
    QStringList key;                  ///< columns of the primary key; empty for logs, messages and work tables
    QList<QStringList> indexes;       ///< columns of each secondary index
};

/// All tables that the suite's programs read or write.
const QList<TableDefinition>& SuiteTables();

/// The tables of one database, in the order of the catalogue.
QList<TableDefinition> TablesOf(DatabaseKind store);

/// The table of that exact name. Throws database::DatabaseError platform::kItemNotFound if it is unknown.
const TableDefinition& SuiteTable(DatabaseKind store, const QString& name);

/// The rules of all connections to the general database: names and addresses are sorted as text, login names ignore
/// letter case.
database::TextRules SuiteTextRules();
