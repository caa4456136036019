#pragma once

/// Key code of KeyDown for one of Qt's keys: letters and digits are their capital's character code. 0 for a key
/// that no handler knows.
int KeyCodeOf(int qtKey);
