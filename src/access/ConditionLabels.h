#pragma once

#include <QString>
#include <array>

/// 条件項目名A to 条件項目名Z: labels of the fields of a program's start command.
using ConditionLabels = std::array<QString, 26>;

/// Writes the labels into the program's row of the menu table. Does nothing if there is
/// no such row. A failed statement shows a message box.
void StoreConditionLabels(const QString& menu, const QString& programId, const ConditionLabels& labels);
