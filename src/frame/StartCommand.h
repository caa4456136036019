#pragma once

#include <QString>

/// Takes the fixed-width block apart into the conditions and the office. `command` is the trimmed command line.
/// A short one empties the fields behind its end.
void ParseStartCommand(const QString& command);
