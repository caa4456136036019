#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

/// Option that adds an installation to the desktop menu.
extern const QString kMenuOption;
void EnterInMenu(const QString& root, const Console& console);

QList<OptionRule> UpgradeOptions();

/// Upgrades an installation to this tool's version: programs, manual, and the tables, columns, indexes and reports
/// added since, in the common files and in all private copies; also a general database on a server, if the connection
/// string of its owner is given. Changes no row and may be repeated. Throws UsageError before anything is changed,
/// platform::RuntimeError with the file name later; each file is then either unchanged or fully upgraded.
void UpgradeInstallation(const Arguments& arguments, const Console& console);

}  // namespace setup
