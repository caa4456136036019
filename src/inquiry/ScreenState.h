#pragma once

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
