#pragma once

#include <QAccessible>
#include <QString>

// Accessibility: what screen readers and other assistive tools get for widgets that Qt describes badly or not at all.

/// A widget that paints its own text. Qt keeps hidden widgets in the accessibility tree, texts included; a widget whose
/// text must not be read while it is hidden has to return empty texts itself.
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
/// purpose of the list is lost, and a list without an entry has no name at all. Here the entry is value and
/// description; it is the name only if none is set. Once per process; later calls do nothing.
void InstallAccessibleCombo();
