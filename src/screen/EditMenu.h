#pragma once

#include <functional>

class QLineEdit;
class QMenu;

/// The context menu of an input item, to be popped up and gone when it closes: undo, cut, copy, paste, delete, select
/// all, in Japanese. `paste` puts the clipboard in, within the item's bounds.
QMenu* MakeEditMenu(QLineEdit& edit, const std::function<void()>& paste);
