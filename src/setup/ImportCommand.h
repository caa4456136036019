#pragma once

#include "platform/Database.h"
#include "setup/Arguments.h"
#include "setup/Console.h"
#include "setup/JetFile.h"

namespace setup {

/// Replaces the rows of every table of an installation's general database by those of a Jet or ACE file. Tables and
/// columns are found by their names without regard to letter case; what the file has beyond them stays away and is
/// told, and columns that it lacks become Null and are told. The rows of each table are counted. It is one transaction:
/// after a failure nothing has changed. Throws Refusal and platform::RuntimeError, which names all tables that the file
/// lacks.
void ImportGeneral(const Arguments& arguments, const Console& console);

}  // namespace setup
