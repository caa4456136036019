#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

/// Options of the verb `printer`.
QList<OptionRule> PrinterOptions();
/// Sets the printer or output folder of the reports in the common template file and in every user's copy; prints the
/// setting if no such option is given. Throws UsageError and platform::RuntimeError.
void ChoosePrinter(const Arguments& arguments, const Console& console);

}  // namespace setup
