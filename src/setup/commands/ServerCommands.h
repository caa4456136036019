#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

QList<OptionRule> ServerInitOptions();
QList<OptionRule> UseServerOptions();

/// Makes the tables of the general database on a server and, where an installation is named, copies its general
/// database there, with a line for each table. The rows of every table are counted at the end. After a failure the
/// tables are taken away again. With `--add-missing` adds instead the tables, columns, indexes and functions that
/// tables made earlier lack, and changes no row. Throws UsageError where one of the tables is there already, or with
/// that option none is; else platform::RuntimeError.
void InitServer(const Arguments& arguments, const Console& console);

/// Points the definition row of an installation at a server, if every table, column and function of the suite is there
/// and the collations compare exactly. Throws UsageError and platform::RuntimeError; nothing is changed then.
void UseServer(const Arguments& arguments, const Console& console);

}  // namespace setup
