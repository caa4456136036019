#pragma once

#include <QStringList>

#include "setup/commands/Console.h"

namespace setup {

/// `registry list [KEY]`, `registry get KEY NAME`, `registry set KEY NAME VALUE [--number]`, the words behind the verb
/// as they came. Keys begin with HKLM or HKCU. Throws UsageError for words that are wrong, otherwise
/// platform::RuntimeError.
void RunRegistryCommand(const QStringList& words, const Console& console);

}  // namespace setup
