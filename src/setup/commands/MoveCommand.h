#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

/// Updates the definition rows and linked tables of a copied or moved installation, common and private, to point to its
/// own files, and prints the changes. A general database outside the installation or on a server is left unchanged and
/// reported; a file outside also makes the command fail, since it may belong to the original. A file that can't be
/// changed makes it fail after all others have been processed. Throws UsageError and platform::RuntimeError.
void MoveInstallation(const Arguments& arguments, const Console& console);

}  // namespace setup
