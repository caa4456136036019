#pragma once

#include <QList>
#include <QSizeF>
#include <memory>

#include "report-host/render/FontSet.h"
#include "report-host/template/TemplateDefinition.h"

namespace report {

/// A text brought into its place.
struct FittedText {
    double size = 0;     ///< type size in millimetres
    double stretch = 1;  ///< of the letters along the line
    QList<std::shared_ptr<const ShapedText>> lines;
};

/// Fits a text into `length` along and `depth` across the lines, in millimetres. What finds no room at the smallest
/// size that the style allows ends in "…".
FittedText FitText(FontSet& types, const QString& text, const TextStyle& style, double length, double depth);

inline constexpr double kMillimetresPerPoint = 25.4 / 72;
/// No text is condensed further: beyond this it can't be read.
inline constexpr double kNarrowest = 0.5;

}  // namespace report
