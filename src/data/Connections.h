#pragma once

#include <QString>
#include <optional>

#include "database/Database.h"
#include "globals/EnvironmentDefinition.h"

// Connection strings of the suite's databases, and the two connections in ProgramGlobals. database::DatabaseSession.h
// describes the shape of a connection string.

/// Name of the provider of a file kind, as in a connection string; empty for FileKind::None.
QString DesktopProvider(FileKind kind);

/// Connection string of a desktop database file, with empty user and password. `path` is appended to "Data Source="
/// unchanged; a ";" after it is optional. For FileKind::None the string has no provider, and opening it fails.
QString DesktopConnectionString(FileKind kind, const QString& path);

/// Connection string of the configuration database: DesktopConnectionString.
QString ConfigConnectionString(FileKind kind, const QString& path);

/// The `path` for ConfigConnectionString of the configuration file in use: usrcnfg in Layout.UserConfFolder, with a
/// trailing ";". The suffix is ".mdb" if Layout.ConfigDbKind is Mdb, otherwise ".accdb".
QString UserConfigDataSource();

/// Connection string of the general database. By `db`: "S" サーバー名 as the Data Source and データベース名 as the
/// Initial Catalog; "A" or "O" データソース名 as the Data Source (the path of a file, or a data source of ODBC);
/// nullopt for any other text.
std::optional<QString> GeneralConnectionString(const GeneralDatabaseDefinition& definition);

/// Settings of every connection, to be made before Open: 60 s connection timeout, 30,000 s statement timeout.
void ApplyConnectionSettings(database::Connection& connection);

/// Replaces ConfigConnection by a new connection and opens it for writing. ConfigConnectionOpen is set by the caller.
/// Throws database::DatabaseError.
void OpenConfigConnection(const QString& connectionString);

/// Reopens ConfigConnection on the file in use, so that the next read sees the writes of other programs. Sets and
/// returns ConfigConnectionOpen: false if that fails, without a message or history row; later writes then fail
/// silently.
bool ReconnectConfigConnection();

/// Opens MainConnection on the general database by its definition row (Globals().GeneralDatabase), read-only and with
/// SuiteTextRules. If GeneralConnectionString returns nullopt, nothing is opened or reported, and the first query
/// fails. Throws database::DatabaseError.
void OpenGeneralConnection();

/// Opens the general database in the same way on the caller's connection, for writing. Throws database::DatabaseError,
/// kProviderNotFound if GeneralConnectionString returns nullopt.
void OpenForWriting(database::Connection& connection);
