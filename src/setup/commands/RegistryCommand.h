#pragma once

#include <QStringList>

#include "setup/commands/Console.h"

namespace setup {

/// `registry list [KEY]`, `registry get KEY NAME`, `registry set KEY NAME VALUE [--number]`; `words` are the arguments
/// after `registry`. Keys begin with HKLM or HKCU. Throws UsageError for invalid arguments, otherwise
/// platform::RuntimeError.
void RunRegistryCommand(const QStringList& words, const Console& console);

}  // namespace setup
