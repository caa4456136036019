#pragma once

#include <QString>

#include <vector>

#include "globals/StaffRowStore.h"

// The list of the main form: a fixed number of row positions, filled from the row store. Position p shows the row
// TopRow + p.

inline constexpr int kRowPositions = 8;

/// An item of a row position that shows the text of the store's field of the same name.
struct DetailItem {
    StaffText field;
    QString item;
};
/// All of them, in the order in which a row is painted.
const std::vector<DetailItem>& DetailItems();

/// Sets RowsPerPage by the screen's height: 8 from 864 pixels on, otherwise 6 and a shorter form.
void AdaptScreenToHeight();

/// Writes one row of the store into one position of the list, whatever stood there.
void PaintDetailRow(int row, int position);
