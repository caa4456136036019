#pragma once

#include <QStringList>

#include "database/Database.h"
#include "globals/EnvironmentDefinition.h"

namespace setup {

/// Adds the tables, columns, indexes and functions that an older general database on a server lacks. Rows and additions
/// of the site are unchanged; new columns are Null. Atomic if the engine's DDL is transactional. Returns one sentence
/// per change. Throws UsageError if none of the suite's tables exists, and database::DatabaseError.
QStringList RenewServer(database::Connection& server);

/// Throws platform::RuntimeError if the account of the definition row cannot see every table and column of the suite.
void CheckSeenByPrograms(const GeneralDatabaseDefinition& definition);

}  // namespace setup
