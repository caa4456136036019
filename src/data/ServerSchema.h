#pragma once

#include <QString>
#include <QStringList>
#include <utility>

#include "data/Catalogue.h"
#include "database/Database.h"

// DDL of the general database on a server. Table and column names are those of the catalogue. The columns are created
// so that texts are compared exactly, by code point, whatever the server's settings are. `engine` is always the name
// that the driver reports (DatabaseSession::EngineName).

/// Statements of a schema in the order of execution: functions and tables, then the caller's rows, then the indexes,
/// which are faster to build on existing rows.
struct ServerSchema {
    QStringList tables;  ///< CREATE statements of functions, then of tables
    QStringList indexes;
};

/// An index and its CREATE statement.
struct ServerIndex {
    QString name;
    QString statement;
};

/// Schema of the given tables. Throws database::DatabaseError kProviderNotFound for an unsupported engine.
ServerSchema ServerSchemaOf(const QString& engine, const QList<TableDefinition>& tables);

/// The indexes of one table except the primary key.
QList<ServerIndex> ServerIndexesOf(const QString& engine, const TableDefinition& table);

/// Statement that adds a column to an existing table.
QString AddServerColumnStatement(const QString& engine, const TableDefinition& table, const ColumnDefinition& column);

/// Functions of the engine's schema: name, and the statement that creates or replaces it. Empty except for PostgreSQL.
QList<std::pair<QString, QString>> ServerFunctionsOf(const QString& engine);

/// The identifier of a table, column or index for a statement: KeptServerName in double quotes.
QString ServerName(const QString& engine, const QString& name);
/// The name as the engine stores it: PostgreSQL with ASCII letters in lower case, others unchanged.
QString KeptServerName(const QString& engine, const QString& name);

/// A setting of a server database that makes searches and orders by text fail or return other rows than the suite
/// expects.
struct ServerTextFault {
    QString what;    ///< a Japanese sentence without the full stop
    QString remedy;  ///< the command that fixes it: an SQL statement, or a command line of suite-setup
};

/// Finds missing or inaccessible functions (ServerFunctionsOf), and columns whose collation treats different texts as
/// equal, so that a search by code or login name would find other rows. Empty if the connection is not open, for a
/// desktop file, and for an engine other than PostgreSQL and MariaDB. Throws database::DatabaseError.
QList<ServerTextFault> FindServerTextFaults(database::Connection& general);
