#pragma once

#include <QString>

/// True when the launching staff member may do the operation (0 start, 1 input, 2 change, 3 delete, 4 print,
/// 5 preview, 6 text output, 7 image output). Reads configuration and staff anew each time. Where no PIN is demanded
/// everything is allowed, though the reads still happen; otherwise somebody may sign in by PIN, as often as it takes.
bool CheckProgramPermission(const QString& menu, const QString& programId, int operation);

/// Who is known, and whether that person has the right. Sets OperatorAuthenticated.
bool LoadIdentityAndRights(const QString& menu, const QString& programId, int operation);
/// The personal rule, or else the rule of the program's class in the menu, and then the operation's own right.
bool EvaluateProgramRights(const QString& menu, const QString& programId, int operation);

/// Keeps the code as the last sign-in of this configuration and loads its identity. A failing write shows a message.
void SaveLaunchStaffCode();
