#pragma once

#include <QString>

#include "globals/EnvironmentDefinition.h"
#include "setup/commands/Arguments.h"

namespace setup {

/// Option that takes such a string.
extern const QString kOdbcOption;
/// The definition for its value; UsageError without one.
GeneralDatabaseDefinition DefinitionFrom(const Arguments& arguments);

/// The general database's definition for a connection string of the driver manager, as an administrator types it:
/// - "Driver=…;Server=…;Port=…;Database=…;UID=…;PWD=…" gives dialect S, with the driver's name as provider;
/// - "DSN=…;UID=…;PWD=…" gives dialect O.
/// Values may stand in {braces}. Throws UsageError for anything else: a definition row has no place for it, but a data
/// source has.
GeneralDatabaseDefinition DefinitionOf(const QString& odbcString);

}  // namespace setup
