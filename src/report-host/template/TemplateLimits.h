#pragma once

#include <QtGlobal>

// What a form may ask for. Far more than any paper needs; keeps the work on a page, and its arithmetic, bounded.

namespace report {

inline constexpr qsizetype kMostFormText = 1'000'000;  ///< characters of a form's text
inline constexpr qsizetype kMostFormLines = 10'000;
inline constexpr int kMostElements = 1'000;     ///< texts, lines, frames, pictures of a form
inline constexpr int kMostCellsOfPage = 2'000;  ///< rows on a page, or cells where a row fills several
inline constexpr int kMostElementsOfPage = 100'000;
inline constexpr qsizetype kMostDigitBoxes = 100;
inline constexpr qsizetype kMostCharacters = 20'000;  ///< of a text in its place; a longer one ends in "…"
inline constexpr double kLeastPoints = 0.5;
inline constexpr double kLeastLineStep = 0.1;

}  // namespace report
