#pragma once

#include <QString>

/// Reads the code of the last sign-in from the configuration into LaunchingStaffCode. True when there is one.
bool LoadLaunchStaffCode();
/// Fills the staff identity from the staff master. True when the row exists; a Null leaves its field as it was.
bool LoadStaffIdentity(const QString& code);
