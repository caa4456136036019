#pragma once

#include "setup/Arguments.h"
#include "setup/Console.h"

namespace setup {

QList<OptionRule> LinksOptions();

/// Prints the messages that wait in the channel between the programs, oldest first, with their age by the clock of this
/// machine. Where users have private copies each of them has a channel of its own. Writes nothing. Throws Refusal and
/// platform::DatabaseError.
void ShowLinks(const Arguments& arguments, const Console& console);

}  // namespace setup
