#pragma once

#include <QString>

class SelectionSource;

// What the windows that hold a selection have in common, whatever they are made of.

/// From here on query and condition text find the selection under the window's name.
void RegisterSelection(const QString& window, SelectionSource& source);
/// Takes it back, unless another window of that name has taken the place meanwhile.
void UnregisterSelection(const QString& window, const SelectionSource& source);

/// Gives the main form back to the user after a window has set its flag and has gone: the form is enabled and
/// painted, and the focus goes to ListNextItem, or to the first item behind it where the flag has disabled that one.
void ReturnToHead();
