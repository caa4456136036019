#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "database/Database.h"

// What the suite keeps in which table. The programs create and alter no table; the set-up tool makes them all from
// here, and whoever opens a database learns from here which columns hold words.

/// The database file that a table lies in.
enum class DatabaseKind { General, Configuration, Report, Forms };

struct ColumnDefinition {
    QString name;
    QString type;  ///< declared type: TEXT for codes, dates and numbers too, since the suite compares them as text
};

struct TableDefinition {
    DatabaseKind store;
    QString name;
    QList<ColumnDefinition> columns;  ///< in the order in which the suite writes them
    QStringList key;                  ///< columns of the primary key; empty for logs, messages and work tables
    QList<QStringList> indexes;       ///< columns of each further index
};

/// Every table of the suite that a program of it reads or writes.
const QList<TableDefinition>& SuiteTables();

/// The table of that name, spelled exactly. DatabaseError kItemNotFound for an unknown one.
const TableDefinition& SuiteTable(DatabaseKind store, const QString& name);

/// Which columns the desktop engine sorts as words, and which it compares without letter case.
database::TextRules SuiteTextRules();
