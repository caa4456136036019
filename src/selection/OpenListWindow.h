#pragma once

#include <QString>

struct RangeCondition;

/// Shows a list window modally and returns when it has closed. The window is created at its first use and keeps its
/// state while it is only hidden. The caller sets ListCondition, ListResultItem and ListNextItem first and disables
/// itself. RuntimeError kItemNotFound for an unknown name.
void ShowListWindow(const QString& name);

/// Opens the multi-select window of a range and returns when it has closed. The main form is disabled until then.
void OpenSelectionWindow(const RangeCondition& range);
