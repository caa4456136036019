#pragma once

#include <QString>

#include <vector>

#include "globals/InquiryRecords.h"

// The screen is a view of the state in Globals(): handlers change the state and repaint, and never update other
// controls themselves. Painting writes every item; ScreenPainting is set meanwhile, so that handlers ignore the events
// of their items.

/// Paints head and rows.
void RefreshScreen();
/// Paints the head items, disables those that a selection replaces, and colours the selection buttons.
void PaintHeadItems();
/// Paints the visible rows, from TopRow on.
void PaintDetailRows();
/// Last step of RefreshScreen: clears ScreenPainting.
void EndPainting();

// The list of the main form: a fixed number of row positions. Position p shows row TopRow + p of the row store.

inline constexpr int kRowPositions = 8;

/// An item of a row position and the field of the row store that it shows.
struct DetailItem {
    StaffText field;
    QString item;
};
/// The items of a position in the order of painting, without 行No, which is painted before the check box.
const std::vector<DetailItem>& DetailItems();

/// Sets RowsPerPage by the height of the screen: 8 from 864 pixels on, otherwise 6, and then hides two row positions
/// and shortens the main form. To be called once, before the form is shown.
void AdaptScreenToHeight();

/// Paints row `row` of the store at position `position` of the list, both from 0. A row after the last one is empty.
void PaintDetailRow(int row, int position);
