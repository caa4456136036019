#pragma once

#include <QString>
#include <QStringList>
#include <utility>

#include "data/Catalogue.h"
#include "database/Database.h"

// DDL of the general database on a server. Table and column names are those of the catalogue. Texts are compared
// exactly, by code point, whatever the server's settings are.

/// Statements of a schema in the order of execution: functions and tables, then the caller's rows, then the indexes,
/// which are faster to build on existing rows.
struct ServerSchema {
    QStringList tables;
    QStringList indexes;
};

/// An index and its CREATE statement.
struct ServerIndex {
    QString name;
    QString statement;
};

/// Schema of the given tables. `engine` is the name reported by the driver. Throws database::DatabaseError
/// kProviderNotFound for an unsupported engine.
ServerSchema ServerSchemaOf(const QString& engine, const QList<TableDefinition>& tables);

/// The indexes of one table except the primary key.
QList<ServerIndex> ServerIndexesOf(const QString& engine, const TableDefinition& table);

/// Statement that adds a column to an existing table.
QString AddServerColumnStatement(const QString& engine, const TableDefinition& table, const ColumnDefinition& column);

/// Functions of the engine's schema: name and the statement that creates or replaces it.
QList<std::pair<QString, QString>> ServerFunctionsOf(const QString& engine);

/// ServerName: the identifier for a statement, quoted if the engine needs it. KeptServerName: as the engine stores it.
QString ServerName(const QString& engine, const QString& name);
QString KeptServerName(const QString& engine, const QString& name);

/// A setting of a server database due to which texts are compared differently than the suite expects, or not at all.
struct ServerTextFault {
    QString what;    ///< a Japanese sentence without the full stop
    QString remedy;  ///< the command that fixes it
};

/// Finds missing or inaccessible functions for searches and orders by name, and columns whose collation treats
/// different texts as equal, so that a search by code or login name would find other rows. Empty for a desktop file and
/// for an engine that gets statements unchanged. Throws database::DatabaseError.
QList<ServerTextFault> FindServerTextFaults(database::Connection& general);
