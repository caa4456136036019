#pragma once

#include <QString>

/// Opens the window behind a range button of the head, in which rows of a master are picked one by one, and returns
/// when it is closed. The main form is disabled meanwhile. RuntimeError for a button that opens none.
void OpenSelectionWindow(const QString& button);
