#pragma once

#include <QStringList>

#include "setup/commands/Console.h"

namespace setup {

/// Runs the tool; `arguments` without the program name. Returns the exit status: 0 success; 1 failed on the way, with a
/// message; 2 usage error, nothing was changed.
int RunSetup(const QStringList& arguments, const Console& console);

}  // namespace setup
