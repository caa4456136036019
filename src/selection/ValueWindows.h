#pragma once

#include <QString>

/// Opens the window of search values behind a button of the head and returns when it is closed. It is made at its
/// first opening and shows what was entered last at every other one. The main form stays enabled meanwhile. False,
/// and nothing done, when no window of values stands behind the button.
bool OpenValueWindow(const QString& button);
