#pragma once

#include <QString>

/// Parses the fixed-width block into the conditions and the office. `command` is the trimmed command line. Fields after
/// its end become empty.
void ParseStartCommand(const QString& command);
