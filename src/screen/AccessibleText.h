#pragma once

#include <QAccessible>
#include <QString>

/// What a widget that paints its own text tells assistive tools. Qt keeps hidden widgets in the accessibility tree,
/// texts included: whoever must not be read while hidden has to give empty texts by himself.
class AccessibleText {
  public:
    virtual ~AccessibleText() = default;
    virtual QAccessible::Role SpokenRole() const = 0;
    virtual QString AccessibleName() const = 0;
    virtual QString SpokenDescription() const = 0;
};

/// From now on widgets that are AccessibleText are read as such. Once is enough; further calls do nothing.
void InstallSpokenTextAccess();
