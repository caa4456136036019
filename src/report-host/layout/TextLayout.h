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

/// The box of a text, in millimetres.
struct TextBox {
    double length = 0;  ///< along the line
    double depth = 0;   ///< across the lines
    /// Length at the end of the last of several lines that is kept free for a text that follows.
    double reserved = 0;
};

/// Lays out `text` in a box. Converts it for kanji numerals and vertical writing if the style asks for that, and
/// replaces characters without a glyph by kMissingMark. Blanks at the beginning of a paragraph are the indentation of
/// all its lines. Text that does not fit as style.fitting says is truncated with "…".
FittedText FitText(FontSet& fonts, const QString& text, const TextStyle& style, const TextBox& box);

inline constexpr double kMillimetresPerPoint = 25.4 / 72;
/// Smallest stretch factor; more condensed text is illegible.
inline constexpr double kNarrowest = 0.5;

}  // namespace report
