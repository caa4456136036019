#pragma once

class ListWindow;

/// Turns a list window into a lookup. Enter in the list or a click on a row writes the row's code to ListResultItem,
/// closes the window and moves the focus to ListResultItem, then to ListNextItem, so that the caller accepts the code.
/// btn_戻る closes the window and returns the focus to ListResultItem without changing its text. Both enable the
/// calling window again and clear ListCondition.
void ConnectLookup(ListWindow& window);
