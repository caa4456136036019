#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "database/Database.h"

// The suite's tables. The programs do not create or alter tables; the setup tool creates all of them from this
// catalogue. Connections take from it which columns contain words.

/// The database file of a table.
enum class DatabaseKind { General, Configuration, Report, Forms };

struct ColumnDefinition {
    QString name;
    QString type;  ///< always TEXT, also for codes, dates and numbers: the suite compares them as text
};

struct TableDefinition {
    DatabaseKind store;
    QString name;
    QList<ColumnDefinition> columns;  ///< in the order in which the suite writes them
    QStringList key;                  ///< columns of the primary key; empty for logs, messages and work tables
    QList<QStringList> indexes;       ///< columns of each secondary index
};

/// All tables that the suite's programs read or write.
const QList<TableDefinition>& SuiteTables();

/// The catalogue's tables of one database.
QList<TableDefinition> TablesOf(DatabaseKind store);

/// The table of that exact name. Throws database::DatabaseError kItemNotFound if it is unknown.
const TableDefinition& SuiteTable(DatabaseKind store, const QString& name);

/// Columns that the desktop engine sorts by word collation, and columns that it compares case-insensitively.
database::TextRules SuiteTextRules();
