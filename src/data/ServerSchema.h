#pragma once

#include <QString>
#include <QStringList>

#include "data/Catalogue.h"

// The tables of the general database on a server. Names and columns are those of the catalogue; texts are compared
// exactly, by their characters' codes, whatever the server's own settings are.

/// What makes a schema, in the order of its use: functions and tables, then the rows of whoever fills it, then the
/// indexes, which are quicker to make behind them.
struct ServerSchema {
    QStringList tables;
    QStringList indexes;
};

/// For the tables given, on an engine by the name that its driver reports. kProviderNotFound for an engine whose schema
/// is not known here.
ServerSchema ServerSchemaOf(const QString& engine, const QList<TableDefinition>& tables);

/// Name as the engine keeps it, in its quotes.
QString ServerName(const QString& engine, const QString& name);

/// The tables of the catalogue that lie in one store.
QList<TableDefinition> TablesOf(Store store);
