#pragma once

#include <QString>

/// Reads the last sign-in's code from the configuration into LaunchingStaffCode. True if there is one.
bool LoadLaunchStaffCode();
/// Fills the staff identity from the staff master. True if the row exists. A Null keeps the field's value.
bool LoadStaffIdentity(const QString& code);
