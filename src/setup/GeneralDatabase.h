#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "data/Catalogue.h"
#include "data/EnvironmentDefinition.h"
#include "platform/Database.h"

namespace setup {

/// Opens the general database that a definition row names, as the programs do. Throws platform::DatabaseError,
/// kProviderNotFound also for an unknown dialect.
void OpenDefined(platform::Connection& connection, const GeneralDatabaseDefinition& definition,
                 platform::ConnectMode mode);

/// The row 'GNR' of a configuration file as the programs read it; nothing if there is none. Throws
/// platform::DatabaseError.
std::optional<GeneralDatabaseDefinition> FindDefinition(const QString& configurationFile);
/// The same, and Refusal if there is none.
GeneralDatabaseDefinition ReadDefinition(const QString& configurationFile);

/// Opens the general database of an installation by its row; Refusal where that is not a file.
void OpenGeneralFile(platform::Connection& connection, const QString& root, platform::ConnectMode mode);

/// False where there is no such table. `name` in the words and quotes of the connection's engine.
bool HasTable(platform::Connection& connection, const QString& name);
/// Columns of a table as the engine spells them; empty where there is no such table.
QStringList ColumnsOf(platform::Connection& connection, const QString& table);
/// Without regard to letter case.
bool HasColumn(const TableDefinition& table, const QString& column);

/// Tables and columns of the suite that are not there, for people: "表 T閲覧", "表 M担当者 の列 カナ". `engine` as for
/// ServerName; empty for a desktop file.
QStringList MissingIn(platform::Connection& connection, const QString& engine);

}  // namespace setup
