#pragma once

#include <QString>

#include <vector>

#include "globals/InquiryRecords.h"

// The screen is a view of the state in Globals(): handlers change the state and repaint, and never update other
// controls themselves. Painting writes every item.

/// Paints head and rows, then EndPainting.
void RefreshScreen();
/// Paints the head items and enables them by the condition flags.
void PaintHeadItems();
/// Paints the visible rows, from TopRow on.
void PaintDetailRows();
/// Clears ScreenPainting.
void EndPainting();

// The list of the main form: a fixed number of row positions. Position p shows row TopRow + p of the row store.

inline constexpr int kRowPositions = 8;

/// An item of a row position that shows the text of the store's field of the same name.
struct DetailItem {
    StaffText field;
    QString item;
};
/// In the order of painting.
const std::vector<DetailItem>& DetailItems();

/// Sets RowsPerPage by the height of the screen: 8 from 864 pixels on, otherwise 6 and a shorter form.
void AdaptScreenToHeight();

/// Writes all items of a row of the store to a position of the list.
void PaintDetailRow(int row, int position);
