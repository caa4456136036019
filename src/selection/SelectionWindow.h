#pragma once

#include <QString>

class SelectionSource;

// Shared by the windows that contain a selection: multi-select and value windows.

/// Makes the selection available to query and condition text under the window's name. `source` is not owned.
void RegisterSelection(const QString& window, SelectionSource& source);
/// Removes the registration, unless another window of that name has registered since.
void UnregisterSelection(const QString& window, const SelectionSource& source);

/// Returns to the main form after a window has set its flag and closed: enables and repaints the form and moves the
/// focus to ListNextItem, or to the next enabled item if the flag has disabled that one.
void ReturnToHead();
