#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

/// Points the definition rows and the linked tables of an installation that was copied or moved, the common ones and
/// every user's, at its own files, and says what it changed. A general database elsewhere, and one on a server, stay as
/// they are and are told; the former ends with a failure, since it may be the original's. So does a file that can't be
/// changed, after all others. Throws UsageError and platform::RuntimeError.
void MoveInstallation(const Arguments& arguments, const Console& console);

}  // namespace setup
