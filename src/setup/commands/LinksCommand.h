#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

QList<OptionRule> LinksOptions();

/// Prints the messages that wait in the channel between the programs, oldest first, with their age by the clock of this
/// machine. Where users have private copies each of them has a channel of its own. Writes nothing. Throws UsageError
/// and database::DatabaseError.
void ShowLinks(const Arguments& arguments, const Console& console);

}  // namespace setup
