#pragma once

#include <QString>

#include "setup/checks/CheckReport.h"
#include "setup/checks/UserAccess.h"

namespace setup {

// Each check reports, in plain language, what keeps the user from using the file. `what` is the name of the file in the
// message.

/// True if the file exists and the user may read it.
bool CheckFile(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// Same for a program, which the user must also be able to execute.
void CheckProgram(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// Also opens the file as the programs do, to detect damage. True if it can be read.
bool CheckDatabase(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// For a database that can be read: the user may write it and create files in its folder.
void CheckWritable(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// Checks the work tables, the template file next to them and its links to them. `own`: the user prints from these
/// files and must be able to write them.
void CheckReportFiles(CheckReport& findings, const UserAccess& user, const QString& workTables, bool own);

}  // namespace setup
