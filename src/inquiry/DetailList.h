#pragma once

#include <QString>

#include <vector>

#include "globals/InquiryRecords.h"

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
