#pragma once

#include <QString>
#include <array>

/// The suite offers a program's start command by up to 26 labels, 条件項目名A to 条件項目名Z.
using ConditionLabels = std::array<QString, 26>;

/// Writes the names of this program's start command into its row of the menu table, so that whoever launches it can
/// tell what each field means. The places behind the last field are emptied.
void PublishConditionLabels(const QString& menu, const QString& programId);

/// Writes the labels into the program's row of the menu table. None may hold a quote. Where there is no such row,
/// nothing is written and nothing said; a statement that fails shows a message box.
void StoreConditionLabels(const QString& menu, const QString& programId, const ConditionLabels& labels);
