#pragma once

#include <QList>
#include <QSizeF>
#include <memory>

#include "report-host/render/FontSet.h"
#include "report-host/template/TemplateDefinition.h"

namespace report {

/// Result of the text layout.
struct FittedText {
    double size = 0;     ///< font size in millimetres
    double stretch = 1;  ///< scaling of the glyphs along the line, kNarrowest to 1
    QList<std::shared_ptr<const ShapedText>> lines;
};

/// Lays out `text` in a box of `length` (along the line) by `depth` (across the lines) millimetres. Converts it for
/// kanji numerals and vertical writing if the style asks for that, and replaces characters without a glyph by "〓".
/// Text that does not fit as style.fitting says is truncated with "…".
FittedText FitText(FontSet& fonts, const QString& text, const TextStyle& style, double length, double depth);

/// Converts text for vertical writing: all characters to full width, so that Latin letters and punctuation are upright.
QString ToVerticalText(const QString& text);

/// Replaces half-width and full-width digits one by one by kanji numerals, as in addresses: "１０階" becomes "一〇階".
QString ToKanjiNumerals(const QString& text);

inline constexpr double kMillimetresPerPoint = 25.4 / 72;
/// Smallest stretch factor; more condensed text is illegible.
inline constexpr double kNarrowest = 0.5;

}  // namespace report
