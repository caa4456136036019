#pragma once

class ListWindow;

/// Makes a list window one in which rows are picked by marks, where its name is one of PickDefinitions: check marks,
/// several highlighted rows, the buttons that set and take back marks. Enter and a click choose nothing. btn_戻る works
/// out the flag, hides the window, or unloads it, and gives the main form back. False, and nothing done, for any other
/// list window.
bool WirePicks(ListWindow& window);
