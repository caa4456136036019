#pragma once

#include <QString>

/// Shows a list window by its name and returns when it has closed. It is made at its first use and stays as it was
/// left while it is only hidden. ListCondition, ListResultItem and ListNextItem are the caller's to set before, and the
/// caller disables itself. RuntimeError for a name that is no list window.
void ShowListWindow(const QString& name);
