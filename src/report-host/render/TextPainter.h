#pragma once

#include <QRectF>

#include "report-host/layout/TextLayout.h"

class QPainter;

namespace report {

/// Draws laid out text in the box `place` (millimetres) with the painter's pen.
void DrawFitted(QPainter& painter, const FittedText& text, const TextStyle& style, const QRectF& place);

/// Draws a horizontal line of text; `origin` is the left end of the baseline, `size` the font size in millimetres.
void DrawLine(QPainter& painter, const ShapedText& line, QPointF origin, double size);

}  // namespace report
