#pragma once

#include <QString>
#include <optional>

#include "database/Database.h"
#include "globals/EnvironmentDefinition.h"

/// `name` with the ending of that generation of desktop files, "repdb" to "repdb.accdb"; empty without a kind.
QString DesktopFileName(const QString& name, int kind);

/// A desktop database file's string, without an account. `path` goes behind "Data Source=" as it stands. Without a kind
/// the string names no provider and cannot be opened.
QString DesktopConnectionString(int kind, const QString& path);

/// The configuration database's string. `path` goes behind "Data Source=" as it stands, with its ";" if it has one.
/// Without a kind the string names no provider and cannot be opened.
QString ConfigConnectionString(int kind, const QString& path);

/// The configuration file in use for that string. The ";" behind it belongs to it; the common file, opened
/// first, goes without.
QString UserConfigDataSource();

/// The general database's string by dialect; none where `db` is not exactly "A", "S" or "O".
std::optional<QString> GeneralConnectionString(const GeneralDatabaseDefinition& definition);

/// Settings of every connection, to be made before Open: wait 60 s for a server, let a statement run for 30,000 s,
/// read results whole.
void ApplyConnectionSettings(database::Connection& connection);

/// Puts a new configuration connection in place and opens it. Throws database::DatabaseError.
void OpenConfigConnection(const QString& connectionString);

/// Closes the configuration connection and opens it anew on the file in use, so that the next look at a shared
/// table sees what other programs wrote. False, without a trace, when that fails: writes fail quietly from then on.
bool ReconnectConfigConnection();

/// Opens the general database by its definition row, for reading only. Where the row names no known dialect nothing
/// is opened and nothing said; the first query then fails by itself. Throws database::DatabaseError.
void OpenGeneralConnection();

/// Opens the general database on a connection of the caller's own, for writing, by the same row. Throws
/// database::DatabaseError, kProviderNotFound where the row names no known dialect.
void OpenForWriting(database::Connection& connection);
