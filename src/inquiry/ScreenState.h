#pragma once

// The screen is a projection of the state in Globals(): handlers change state and ask for a paint, and never fix up
// a neighbouring control. A paint writes everything, whatever stood there before.

/// Head, rows, and the end of painting.
void RefreshScreen();
/// The head items and their state by condition flag.
void PaintHeadItems();
/// The visible rows from TopRow on.
void PaintDetailRows();
/// Painting is over, whatever happened before.
void EndPainting();
