#pragma once

#include <QString>

struct RangeCondition;

/// Shows a list window, by the form's name, modally and returns when it has closed. The window is created at its first
/// use and keeps its state while it is only hidden. The caller first sets ListCondition, ListResultItem and
/// ListNextItem and disables its form, which the window enables on closing. Throws RuntimeError kItemNotFound for an
/// unknown name.
void ShowListWindow(const QString& name);

/// Opens the multi-select window of a range from the main form and returns when it has closed. The main form is
/// disabled until then.
void OpenSelectionWindow(const RangeCondition& range);
