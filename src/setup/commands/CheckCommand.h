#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

/// Options of the verb `check`.
QList<OptionRule> CheckOptions();
/// Prints, in plain language, what keeps an installation from working: missing or unreadable files, tables linked to
/// other files, a report host that is missing or does not trust the report folder. Checks the private copies of the
/// given user, or of all users that have some. Throws platform::RuntimeError if there is any fault, UsageError if there
/// is no installation.
void CheckInstallation(const Arguments& arguments, const Console& console);

}  // namespace setup
