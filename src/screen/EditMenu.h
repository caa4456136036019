#pragma once

#include <QPoint>

class EditItem;

/// Puts up the context menu of an input item: undo, cut, copy, paste, delete, select all, in Japanese, and what the
/// item adds. Returns at once; the menu goes away by itself.
void ShowEditMenu(EditItem& item, const QPoint& globalPlace);
