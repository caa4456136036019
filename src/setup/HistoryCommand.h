#pragma once

#include "setup/Arguments.h"
#include "setup/Console.h"

namespace setup {

QList<OptionRule> HistoryOptions();

/// Prints the run history, newest last. Throws Refusal and platform::DatabaseError.
void ShowHistory(const Arguments& arguments, const Console& console);

}  // namespace setup
