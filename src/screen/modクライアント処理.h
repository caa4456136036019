#pragma once

#include <QString>

class Control;
class Form;

// Loops over all controls of a form, for every caller the main form. Controls are selected by their TypeName; other
// types are skipped. All of them ignore a null form.

/// The first control of the form, at or after `from` in tab order, that can take the focus: a button or an item that is
/// enabled, visible and a tab stop by its own values, independent of its panel. Never a combo box. `from` if there is
/// none. `from` may be on another form, since only its TabIndex is used. Does not move the focus.
Control* FindNextTabItem(const Form* form, Control* from);

/// Disables all visible enabled controls: first the input controls, then their containers.
void DisableFormControls(const Form* form);
/// Enables all visible disabled controls, containers first. That includes controls disabled before
/// DisableFormControls; the caller repaints the screen afterwards.
void EnableFormControls(const Form* form);

/// True if a form of exactly this name, case-sensitive, is loaded.
bool IsFormLoaded(const QString& name);
