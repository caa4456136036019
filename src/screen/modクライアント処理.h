#pragma once

#include <QString>

class Control;
class Form;

// Loops over all controls of a form; all callers pass the main form. Controls are selected by their TypeName; other
// types are skipped. A null form is ignored.

/// The first control of the form, at or after `from` in tab order, that can take the focus: a button or an input item
/// that is enabled, visible and a tab stop by its own values, independent of its panel. Never a combo box. Returns
/// `from` if there is none or `form` is null. `from` may be on another form, since only its TabIndex is used. Does not
/// move the focus.
Control* FindNextTabItem(const Form* form, Control* from);

/// Disables all visible enabled controls: first buttons, check boxes, lists, xField, xNum and scroll bars, then the
/// panels and tabs around them.
void DisableFormControls(const Form* form);
/// Enables all visible disabled controls of these types, containers first. That includes controls that were disabled
/// before DisableFormControls; the caller has to repaint the screen, which disables them again.
void EnableFormControls(const Form* form);

/// True if a form of exactly this name, case-sensitive, is loaded.
bool IsFormLoaded(const QString& name);
