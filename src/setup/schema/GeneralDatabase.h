#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

#include "data/Catalogue.h"
#include "database/Database.h"
#include "globals/EnvironmentDefinition.h"

namespace setup {

/// Opens the general database of a definition row, as the programs do. Throws database::DatabaseError;
/// kProviderNotFound also for an unknown dialect.
void OpenDefined(database::Connection& connection, const GeneralDatabaseDefinition& definition,
                 database::ConnectMode mode);

/// The definition row of the general database (情報種類 'GNR') in a configuration file, as the programs read it; empty
/// if there is none. Throws database::DatabaseError.
std::optional<GeneralDatabaseDefinition> FindDefinition(const QString& configurationFile);
/// Same, but throws UsageError if there is none.
GeneralDatabaseDefinition ReadDefinition(const QString& configurationFile);

/// Opens the general database of the installation in the folder `root`. Throws UsageError if there is no configuration
/// file or definition row, or if the row does not name a file, and database::DatabaseError.
void OpenGeneralFile(database::Connection& connection, const QString& root, database::ConnectMode mode);

/// Rows of a SELECT as texts, a Null as null QString; nullopt if the statement fails, as for a missing table or column.
/// Throws database::DatabaseError for an error that is not one of the statement.
std::optional<QList<QStringList>> RowsOf(database::Connection& connection, const QString& sql);
/// False if there is no such table or it cannot be queried. `name` is already quoted for the connection's engine.
/// Throws database::DatabaseError for an error that is not one of the statement, such as a lost connection.
bool HasTable(database::Connection& connection, const QString& name);
/// Columns of a table, spelled as in the database; empty where HasTable is false. Throws as HasTable. `table`:
/// unquoted.
QStringList ColumnsOf(database::Connection& connection, const QString& table);
/// Ignores letter case.
bool HasColumn(const TableDefinition& table, const QString& column);

/// Missing tables and columns of that kind of database, as text for messages: "表 T閲覧", "表 M担当者 の列 カナ".
/// `engine` as for ServerName; empty for a desktop file. Throws database::DatabaseError.
QStringList MissingIn(database::Connection& connection, const QString& engine,
                      DatabaseKind kind = DatabaseKind::General);

/// Converts an ODBC connection string, as typed by an administrator, into the definition of the general database:
/// - "Driver=…;Server=…;Port=…;Database=…;UID=…;PWD=…" gives dialect S, with the driver's name as provider;
/// - "DSN=…;UID=…;PWD=…" gives dialect O.
/// Values may be in {braces}. Throws UsageError for any other field: a definition row cannot store it, a data source
/// can.
GeneralDatabaseDefinition DefinitionOf(const QString& odbcString);

}  // namespace setup
