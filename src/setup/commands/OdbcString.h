#pragma once

#include <QString>

#include "globals/EnvironmentDefinition.h"
#include "setup/commands/Arguments.h"

namespace setup {

/// The definition for the value of `--odbc`. Throws UsageError if it is missing.
GeneralDatabaseDefinition DefinitionFrom(const Arguments& arguments);

/// Converts an ODBC connection string, as typed by an administrator, into the definition of the general database:
/// - "Driver=…;Server=…;Port=…;Database=…;UID=…;PWD=…" gives dialect S, with the driver's name as provider;
/// - "DSN=…;UID=…;PWD=…" gives dialect O.
/// Values may be in {braces}. Throws UsageError for any other field: a definition row cannot store it, a data source
/// can.
GeneralDatabaseDefinition DefinitionOf(const QString& odbcString);

}  // namespace setup
