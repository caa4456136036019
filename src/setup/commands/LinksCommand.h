#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

QList<OptionRule> LinksOptions();

/// Prints the pending messages of the channel between the programs, oldest first, with their age by this machine's
/// clock. Users with private copies have a channel each. Writes nothing. Throws UsageError and database::DatabaseError.
void ShowLinks(const Arguments& arguments, const Console& console);

}  // namespace setup
