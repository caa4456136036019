#pragma once

#include <QStringList>

#include "setup/Console.h"

namespace setup {

/// `registry list [KEY]`, `registry get KEY NAME`, `registry set KEY NAME VALUE [--number]`, the words behind the verb
/// as they came. Keys begin with HKLM or HKCU. Throws Refusal for words that are wrong, otherwise
/// platform::RuntimeError.
void RunRegistryCommand(const QStringList& words, const Console& console);

}  // namespace setup
