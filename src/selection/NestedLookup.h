#pragma once

#include <QString>

class Control;
class Form;

/// Opens a lookup over a master from another list window and returns when it has closed. What is chosen goes into
/// `item`, then `next` gets the focus. The caller's own ListResultItem and ListNextItem stand again afterwards, while
/// its ListCondition is gone.
void OpenNestedLookup(Form& owner, const QString& window, Control& item, Control& next);
