#pragma once

#include <QAccessible>
#include <QString>

class Form;

// Texts and roles for screen readers, for widgets that Qt describes badly or not at all.

/// Interface of a QWidget that paints its own text. Qt keeps hidden widgets in the accessibility tree, texts included;
/// a widget whose text must not be read while it is hidden has to return empty texts.
class AccessibleText {
  public:
    virtual ~AccessibleText() = default;
    virtual QAccessible::Role AccessibleRole() const = 0;
    virtual QString AccessibleName() const = 0;
    virtual QString AccessibleDescription() const = 0;
};

/// Makes Qt use AccessibleText for the widgets that implement it. Once per process; later calls do nothing.
void InstallAccessibleText();

/// Makes every non-editable combo box keep its accessible name. Qt reports the current entry as the name, so the
/// purpose of the list is lost, and a list without an entry has no name at all. From then on the entry is value and
/// description; it is the name only if no accessible name is set. Once per process; later calls do nothing.
void InstallAccessibleCombo();

/// Makes every widget in a Form report what only the form knows (AccessibleForm.cpp): it is disabled while its form is,
/// although it is painted as enabled, and rows outside of their panel, as on a low screen, do not exist. Once per
/// process; later calls do nothing.
void InstallAccessibleForm();

/// Announces that the form has been enabled or disabled, with its tab stops.
void AnnounceEnabled(Form& form);
