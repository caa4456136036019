#pragma once

#include <QString>

// Walks over all controls of the main form, that is Globals().MainForm, whoever calls. Controls are known by their
// TypeName; a class that a walk does not name is passed over. Without a main form nothing happens.

/// Moves Globals().ListNextItem on to the first control at or behind it in tab order that can take the focus: a
/// button or an item that is enabled, visible and a tab stop by its own values, whatever its panel says. Combo boxes
/// are never chosen. Where nothing qualifies it stays. The wanted item may lie on another form: only its TabIndex
/// counts. The focus itself is not moved.
void FindNextTabItem();

/// Disables what is visible and enabled: first the working controls, then their containers.
void DisableFormControls();
/// Enables what is visible and disabled, containers first. Nobody remembers what was disabled on purpose before:
/// the caller paints the screen afterwards.
void EnableFormControls();

/// True when a loaded form has exactly this name, letter case included.
bool IsFormLoaded(const QString& name);

/// Takes back all condition flags of Globals().
void ResetConditionFlags();
