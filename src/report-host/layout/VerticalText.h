#pragma once

#include <QString>

namespace report {

/// A text as it is written from top to bottom: everything in full width, so that letters and signs stand upright.
QString ToVerticalText(const QString& text);

/// Digits of either width one by one as kanji numerals, as in addresses: "１０階" is "一〇階".
QString ToKanjiNumerals(const QString& text);

}  // namespace report
