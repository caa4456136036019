#pragma once

#include "setup/Arguments.h"
#include "setup/Console.h"

namespace setup {

QList<OptionRule> ServerInitOptions();
QList<OptionRule> UseServerOptions();

/// Makes the tables of the general database on a server and, where an installation is named, copies its general
/// database there, with a line for each table. The rows of every table are counted at the end. After a failure the
/// tables are taken away again. Throws Refusal where one of the tables is there already, else platform::RuntimeError.
void InitServer(const Arguments& arguments, const Console& console);

/// Points the definition row of an installation at a server, after a look whether every table and column of the suite
/// is there. Throws Refusal and platform::RuntimeError; nothing is changed then.
void UseServer(const Arguments& arguments, const Console& console);

}  // namespace setup
