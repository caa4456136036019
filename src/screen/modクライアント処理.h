#pragma once

#include <QString>

// Passes over all controls of the main form, also where a list window asks for one. Controls are told apart by their
// TypeName; a class that is in none of the lists is passed over.

/// Replaces ListNextItem by the first item at or behind it in tab order that can take the focus. Without one it stays.
/// A combo box is never chosen. Sets no focus.
void FindNextTabItem();

/// Takes all working controls out of use, and puts them into use again. The pair remembers nothing: what was out of use
/// before is in use afterwards, so a repaint has to follow.
void DisableFormControls();
void EnableFormControls();

/// True when a loaded form has exactly this name.
bool IsFormLoaded(const QString& name);

/// Takes back the flags of all selections.
void ResetConditionFlags();
