#pragma once

#include <QRectF>

#include "report-host/layout/TextLayout.h"

class QPainter;

namespace report {

/// Draws a fitted text into its place with the painter's pen, in millimetres.
void DrawFitted(QPainter& painter, const FittedText& text, const TextStyle& style, const QRectF& place);

/// Draws a line of horizontal text with its baseline beginning at `origin`, in type size `size` (millimetres).
void DrawLine(QPainter& painter, const ShapedText& line, QPointF origin, double size);

}  // namespace report
