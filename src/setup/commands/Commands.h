#pragma once

#include <QStringList>

#include "setup/commands/Console.h"

namespace setup {

/// Runs the tool on its arguments (program name left out). 0: done; 1: something failed on the way, and the message
/// says what; 2: refused, nothing was changed.
int RunSetup(const QStringList& arguments, const Console& console);

}  // namespace setup
