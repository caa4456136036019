#pragma once

#include <QString>

#include "setup/checks/CheckReport.h"
#include "setup/checks/UserAccess.h"

namespace setup {

// Each check tells in plain words what keeps the user from the file, and calls it by `what` it is.

/// True when the file is there and the user may read it.
bool CheckFile(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// The same for a program, which has to be started.
void CheckProgram(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// Also opens it as the programs do, for what is wrong inside. True when its rows can be read.
bool CheckDatabase(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// That the user may write a database that can be read.
void CheckWritable(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// The work tables and the forms files beside them, and that the ones are linked to the others. `own`: the user prints
/// from them.
void CheckReportFiles(CheckReport& findings, const UserAccess& user, const QString& workTables, bool own);

}  // namespace setup
