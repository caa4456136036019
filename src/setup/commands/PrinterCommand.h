#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

/// Options of the verb `printer`.
QList<OptionRule> PrinterOptions();
/// Says where the reports of an installation are printed, in the common forms file and in every user's copy; without an
/// option that says so, shows it. Throws UsageError and platform::RuntimeError.
void ChoosePrinter(const Arguments& arguments, const Console& console);

}  // namespace setup
