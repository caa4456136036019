#pragma once

#include <QString>

class Control;
class Form;

// Walks over all controls of a form, which is the main form for every caller. Controls are chosen by their TypeName; a
// class that a walk does not name is passed over. Without a form nothing happens.

/// The first control of the form, at or after `from` in tab order, that can take the focus: a button or an item that is
/// enabled, visible and a tab stop by its own values, whatever its panel's values are. Combo boxes are never chosen.
/// `from` if nothing qualifies; it may be on another form, since only its TabIndex counts. The focus is not moved.
Control* FindNextTabItem(const Form* form, Control* from);

/// Disables what is visible and enabled: first the working controls, then their containers.
void DisableFormControls(const Form* form);
/// Enables what is visible and disabled, containers first. What was disabled on purpose before is not remembered: the
/// caller paints the screen afterwards.
void EnableFormControls(const Form* form);

/// True when a loaded form has exactly this name, letter case included.
bool IsFormLoaded(const QString& name);
