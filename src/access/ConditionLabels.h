#pragma once

#include <QString>
#include <array>

/// Labels of the fields of a program's start command, as stored in the columns 条件項目名A to 条件項目名Z.
using ConditionLabels = std::array<QString, 26>;

/// Writes the labels into the program's row of a menu table in the configuration database. `menu`: name of the table.
/// Changes nothing if there is no such row. A failed statement is logged and shows a message box.
void StoreConditionLabels(const QString& menu, const QString& programId, const ConditionLabels& labels);
