#pragma once

#include <QtGlobal>

// Limits on templates. Far above any practical template; they bound time and memory for a page.

namespace report {

inline constexpr qsizetype kMostFormText = 1'000'000;  ///< characters of a template
inline constexpr qsizetype kMostFormLines = 10'000;
inline constexpr int kMostElements = 1'000;     ///< texts, lines, frames and pictures of a template
inline constexpr int kMostCellsOfPage = 2'000;  ///< rows on a page, or cells if a row fills several
inline constexpr int kMostElementsOfPage = 100'000;
inline constexpr qsizetype kMostDigitBoxes = 100;
inline constexpr qsizetype kMostCharacters = 20'000;  ///< of a single text; longer text is truncated with "…"
inline constexpr double kLeastPoints = 0.5;
inline constexpr double kLeastLineStep = 0.1;

}  // namespace report
