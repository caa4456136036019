#pragma once

#include <QString>

/// Shows a modal PIN dialog with this caption and returns when it has been closed. After a successful sign-in the
/// person is the launching staff member and OperatorAuthenticated is set; after a cancel the staff member is unknown.
void AskForPin(const QString& caption);
