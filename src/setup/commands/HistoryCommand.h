#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

QList<OptionRule> HistoryOptions();

/// Prints the run history, newest last. Throws UsageError and database::DatabaseError.
void ShowHistory(const Arguments& arguments, const Console& console);

}  // namespace setup
