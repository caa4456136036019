#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

/// Option that enters an installation in the menu.
extern const QString kMenuOption;
void EnterInMenu(const QString& root, const Console& console);

QList<OptionRule> UpgradeOptions();

/// Brings an installation to the version of this tool: its programs, the manual, and the tables, columns, indexes and
/// reports that were added since, in the common files and in all private copies; in a general database on a server
/// where the connection string of its owner is given. No row is touched. May be repeated. Throws UsageError before
/// anything is changed, platform::RuntimeError with the file's name on the way; each file is then either as it was or
/// whole.
void UpgradeInstallation(const Arguments& arguments, const Console& console);

}  // namespace setup
