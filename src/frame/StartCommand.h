#pragma once

#include <QString>

/// Parses the fixed-width block into the conditions and the office. `command` is the trimmed command line. Fields after
/// its end become empty.
void ParseStartCommand(const QString& command);

/// Stores the labels of the block's fields in the program's row of the menu table, where a launching program reads
/// them. Unused labels are emptied. A failed statement shows a message box.
void PublishConditionLabels(const QString& menu, const QString& programId);
