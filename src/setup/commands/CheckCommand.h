#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

/// Options of the verb `check`.
QList<OptionRule> CheckOptions();
/// Says in plain words what keeps an installation from working: files that are missing or can't be read, tables that
/// are linked elsewhere, a report host that is missing or doesn't trust the report folder. With private copies for the
/// user named, otherwise for everybody who has some. Throws platform::RuntimeError when there is anything, UsageError
/// when there is no installation.
void CheckInstallation(const Arguments& arguments, const Console& console);

}  // namespace setup
