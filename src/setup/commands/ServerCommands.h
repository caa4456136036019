#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

QList<OptionRule> ServerInitOptions();
QList<OptionRule> UseServerOptions();

/// Creates the tables of the general database on a server and, if an installation is named, copies its general database
/// there, printing a line for each table; the row counts are compared at the end. On failure the new tables are
/// dropped. With `--add-missing`, adds missing tables, columns, indexes and functions to existing tables instead, and
/// changes no row. Throws UsageError if one of the tables already exists or, with that option, none does; otherwise
/// platform::RuntimeError.
void InitServer(const Arguments& arguments, const Console& console);

/// Points the definition row of an installation at a server, after checking that every table, column and function of
/// the suite exists and that the collations compare exactly. Throws UsageError and platform::RuntimeError; nothing is
/// changed then.
void UseServer(const Arguments& arguments, const Console& console);

}  // namespace setup
