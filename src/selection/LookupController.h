#pragma once

class ListWindow;

/// Makes a list window a lookup: Enter in the list or a click on a row writes the row's code into ListResultItem,
/// closes the window and moves the focus over ListResultItem to ListNextItem; that road makes the caller accept the
/// code. btn_戻る closes the window and gives the focus back to ListResultItem, whose text stays as it was. Either way
/// the window behind is enabled again and ListCondition is empty afterwards.
void WireLookup(ListWindow& window);
