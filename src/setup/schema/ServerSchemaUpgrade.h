#pragma once

#include <QStringList>

#include "database/Database.h"
#include "globals/EnvironmentDefinition.h"

namespace setup {

/// Adds the tables, columns, indexes and functions that a general database on a server lacks since it was made for an
/// older version. Rows, and what a site has added of its own, stay as they are; a new column is Null in every row.
/// Where the engine can take tables back, all or nothing is done. Returns what was done, a sentence for each. Throws
/// UsageError where none of the suite's tables is there, and database::DatabaseError.
QStringList RenewServer(database::Connection& server);

/// Throws platform::RuntimeError where the programs, with the account of their definition row, do not see every table
/// and column of the suite.
void CheckSeenByPrograms(const GeneralDatabaseDefinition& definition);

}  // namespace setup
