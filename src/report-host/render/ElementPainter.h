#pragma once

#include <QCache>
#include <QImage>
#include <functional>

#include "report-host/layout/TextLayout.h"
#include "report-host/render/FontSet.h"
#include "report-host/template/TemplateDefinition.h"

class QPainter;

namespace report {

// Draws texts (TextPainter.cpp) and the other elements of a report. The painter's unit is the millimetre everywhere.

/// Draws laid out text in the box `place` with the painter's pen. Returns the place of its last line.
QRectF DrawFitted(QPainter& painter, const FittedText& text, const TextStyle& style, const QRectF& place);

/// Draws a horizontal line of text with the painter's pen; `origin` is the left end of the baseline, `size` the font
/// size in millimetres.
void DrawLine(QPainter& painter, const ShapedText& line, QPointF origin, double size);

/// Returns the text of a column or built-in field for the current row.
using FieldText = std::function<QString(const QString& name)>;

/// Replaces the fields of a pattern. Between two columns of an address (住所…) next to each other a blank is inserted
/// if both are Latin and at least one has a letter. The result is cut at kMostCharacters + 1 characters, so that the
/// layout can detect that it is too long.
QString Expand(const TextPattern& pattern, const FieldText& fields);

/// Paints the elements of sections.
class ElementPainter {
  public:
    explicit ElementPainter(FontSet& fonts) : fonts_(fonts) {}

    /// Paints the elements of one section or cell, whose top left corner is the painter's origin. A picture that can't
    /// be read is left out. Throws ReportStopped when cancelled, and what `fields` throws.
    void Paint(QPainter& painter, const QList<TemplateElement>& elements, const FieldText& fields);

  private:
    /// What precedes and follows a text.
    struct Neighbours {
        QRectF line;                  ///< last line of the preceding element if it is a text; otherwise empty
        const TemplateElement* next;  ///< may continue the last line; null if there is none
    };

    void PaintText(QPainter& painter, const TemplateElement& element, const Neighbours& neighbours,
                   const FieldText& fields);
    /// Paints an element that is no text.
    void PaintOther(QPainter& painter, const TemplateElement& element, const FieldText& fields);
    /// Length of the end of the last line of `element` that is reserved for `next`, in millimetres.
    double ReservedFor(const TemplateElement& element, const TemplateElement* next, const FieldText& fields);
    void PaintDigitBoxes(QPainter& painter, const TemplateElement& element, const QString& text);
    /// Prints a postal code that is not Japanese below the boxes.
    void PaintForeignCode(QPainter& painter, const TemplateElement& element, const QRectF& boxes, const QString& code);
    void PaintPicture(QPainter& painter, const TemplateElement& element, const QString& path);
    /// The picture file, cached; a null image if it can't be read.
    const QImage& Picture(const QString& path);

    FontSet& fonts_;
    QCache<QString, QImage> pictures_{8};
    QRectF lastLine_;  ///< of the element painted last if it is a text; otherwise empty
};

}  // namespace report
