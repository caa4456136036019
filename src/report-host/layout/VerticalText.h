#pragma once

#include <QString>

namespace report {

/// Converts text for vertical writing: all characters to full width, so that Latin letters and punctuation are upright.
QString ToVerticalText(const QString& text);

/// Replaces half-width and full-width digits one by one by kanji numerals, as in addresses: "１０階" becomes "一〇階".
QString ToKanjiNumerals(const QString& text);

}  // namespace report
