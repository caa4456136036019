#pragma once

#include <QCache>
#include <QImage>
#include <functional>

#include "report-host/render/FontSet.h"
#include "report-host/template/TemplateDefinition.h"

class QPainter;

namespace report {

/// The text that a column or a running value has in the row that is being painted.
using FieldText = std::function<QString(const QString& name)>;

/// No longer than it takes to see that it is too long for any place.
QString Expand(const TextPattern& pattern, const FieldText& fields);

/// Paints the elements of a section. The painter's unit is the millimetre, its origin the section's corner.
class ElementPainter {
  public:
    explicit ElementPainter(FontSet& types) : types_(types) {}

    void Paint(QPainter& painter, const QList<FormElement>& elements, const FieldText& fields);

  private:
    void PaintText(QPainter& painter, const FormElement& element, const QString& text);
    void PaintDigitBoxes(QPainter& painter, const FormElement& element, const QString& text);
    void PaintPicture(QPainter& painter, const FormElement& element, const QString& path);
    const QImage& Picture(const QString& path);

    FontSet& types_;
    QCache<QString, QImage> pictures_{8};
};

}  // namespace report
