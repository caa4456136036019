#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "data/Catalogue.h"
#include "database/Database.h"
#include "globals/EnvironmentDefinition.h"

namespace setup {

/// Opens the general database that a definition row names, as the programs do. Throws database::DatabaseError,
/// kProviderNotFound also for an unknown dialect.
void OpenDefined(database::Connection& connection, const GeneralDatabaseDefinition& definition,
                 database::ConnectMode mode);

/// The row 'GNR' of a configuration file as the programs read it; nothing if there is none. Throws
/// database::DatabaseError.
std::optional<GeneralDatabaseDefinition> FindDefinition(const QString& configurationFile);
/// The same, and UsageError if there is none.
GeneralDatabaseDefinition ReadDefinition(const QString& configurationFile);

/// Opens the general database of an installation by its row; UsageError where that is not a file.
void OpenGeneralFile(database::Connection& connection, const QString& root, database::ConnectMode mode);

/// False where there is no such table. `name` in the words and quotes of the connection's engine.
bool HasTable(database::Connection& connection, const QString& name);
/// Columns of a table as the engine spells them; empty where there is no such table.
QStringList ColumnsOf(database::Connection& connection, const QString& table);
/// Without regard to letter case.
bool HasColumn(const TableDefinition& table, const QString& column);

/// Tables and columns of the suite that are not there, for people: "表 T閲覧", "表 M担当者 の列 カナ". `engine` as for
/// ServerName; empty for a desktop file.
QStringList MissingIn(database::Connection& connection, const QString& engine);

}  // namespace setup
