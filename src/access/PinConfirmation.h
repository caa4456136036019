#pragma once

#include <QString>

/// Lets somebody sign in by PIN, in a modal dialog of that caption, and returns when it is gone. Whoever signed in is
/// the launching staff member then and OperatorAuthenticated is set; after a cancelled dialog nobody is known.
void AskForPin(const QString& caption);
