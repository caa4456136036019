#pragma once

// The check marks for output (出力対象) of the rows in Globals().Rows. Row numbers are 0-based. Nothing is painted.

/// True if the row is checked.
bool IsMarked(int row);
/// Number of checked rows. Reads all rows of the list, so it is not for painting.
int MarkedRowCount();
/// Checks or unchecks the rows from `first` to the last one.
void MarkRowsFrom(int first, bool marked);
/// Checks the unchecked rows and unchecks the others.
void InvertMarks();
