#pragma once

#include "platform/Database.h"
#include "setup/Arguments.h"
#include "setup/Console.h"
#include "setup/JetFile.h"

namespace setup {

/// Replaces the rows of every table of a general database by those of other tables, which are found by their names
/// without regard to letter case. Columns that there are beyond the suite's stay away and are told, and those that are
/// lacking become Null and are told. The rows of each table are counted. It is one transaction: after a failure nothing
/// has changed. Throws platform::RuntimeError, which names all tables that `origin` lacks.
void ImportTables(const ForeignTables& tables, const QString& origin, platform::Connection& general,
                  const Console& console);

/// The verb: the general database is an installation's, and the tables are those of a Jet or ACE file. Throws Refusal
/// and platform::RuntimeError.
void ImportGeneral(const Arguments& arguments, const Console& console);

}  // namespace setup
