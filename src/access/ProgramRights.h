#pragma once

#include <QString>

/// True if the launching staff member has the right to the operation: 0 start, 1 input, 2 change, 3 delete, 4 print,
/// 5 preview, 6 text output, 7 image output. Reads configuration and staff at each call. If no PIN is required, all is
/// allowed, although the reads still take place; otherwise the PIN dialog is shown if the right is missing.
bool CheckProgramPermission(const QString& menu, const QString& programId, int operation);

/// Identifies the staff member and evaluates the right. Sets OperatorAuthenticated.
bool LoadIdentityAndRights(const QString& menu, const QString& programId, int operation);
/// Evaluates the personal rule, or else the rule of the program's class in the menu, then the operation's right.
bool EvaluateProgramRights(const QString& menu, const QString& programId, int operation);

/// Stores the code as the configuration's last sign-in and loads its identity. A failed write shows a message.
void SaveLaunchStaffCode();
