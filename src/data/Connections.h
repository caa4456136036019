#pragma once

#include <QString>
#include <optional>

#include "database/Database.h"
#include "globals/EnvironmentDefinition.h"

/// Name of the provider of a file kind, as in a connection string; empty for FileKind::None.
QString DesktopProvider(FileKind kind);

/// Connection string of a desktop database file, without an account. `path` is appended to "Data Source=" unchanged.
/// For FileKind::None the string has no provider, and opening it fails.
QString DesktopConnectionString(FileKind kind, const QString& path);

/// Connection string of the configuration database. `path` is appended to "Data Source=" unchanged, including a
/// trailing ";". For FileKind::None the string has no provider, and opening it fails.
QString ConfigConnectionString(FileKind kind, const QString& path);

/// Path of the configuration file in use with the trailing ";" that its connection string has. The common file, which
/// is opened first, has none.
QString UserConfigDataSource();

/// Connection string of the general database by dialect; nullopt unless `db` is exactly "A", "S" or "O".
std::optional<QString> GeneralConnectionString(const GeneralDatabaseDefinition& definition);

/// Settings of every connection; call before Open: 60 s connection timeout, 30,000 s statement timeout, client-side
/// cursor.
void ApplyConnectionSettings(database::Connection& connection);

/// Replaces the configuration connection by a new one and opens it. Throws database::DatabaseError.
void OpenConfigConnection(const QString& connectionString);

/// Reopens the configuration connection on the file in use, so that the next read sees the writes of other programs.
/// False if that fails, without a message or history row; later writes then fail silently.
bool ReconnectConfigConnection();

/// Opens the general database by its definition row, read-only. If the row has an unknown dialect, nothing is opened or
/// reported, and the first query fails. Throws database::DatabaseError.
void OpenGeneralConnection();

/// Opens the general database by the same row on the caller's connection, for writing. Throws database::DatabaseError,
/// kProviderNotFound for an unknown dialect.
void OpenForWriting(database::Connection& connection);
