#pragma once

#include <QString>
#include <QStringList>
#include <utility>

#include "data/Catalogue.h"

// The tables of the general database on a server. Names and columns are those of the catalogue; texts are compared
// exactly, by their characters' codes, whatever the server's own settings are.

/// What makes a schema, in the order of its use: functions and tables, then the rows of whoever fills it, then the
/// indexes, which are quicker to make behind them.
struct ServerSchema {
    QStringList tables;
    QStringList indexes;
};

/// One index and the statement that makes it.
struct ServerIndex {
    QString name;
    QString statement;
};

/// For the tables given, on an engine by the name that its driver reports. kProviderNotFound for an engine whose schema
/// is not known here.
ServerSchema ServerSchemaOf(const QString& engine, const QList<TableDefinition>& tables);

/// The indexes of one table beside its key.
QList<ServerIndex> ServerIndexesOf(const QString& engine, const TableDefinition& table);

/// The statement that adds a column to a table that is there.
QString AddServerColumnStatement(const QString& engine, const TableDefinition& table, const ColumnDefinition& column);

/// Functions that a schema on the engine brings along, by their names: the statements that make them, anew where they
/// are there.
QList<std::pair<QString, QString>> ServerFunctionsOf(const QString& engine);

/// Name as the engine keeps it: with or without its quotes.
QString ServerName(const QString& engine, const QString& name);
QString KeptServerName(const QString& engine, const QString& name);

/// The tables of the catalogue that lie in one store.
QList<TableDefinition> TablesOf(DatabaseKind store);
