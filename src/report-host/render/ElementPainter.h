#pragma once

#include <QCache>
#include <QImage>
#include <functional>

#include "report-host/render/FontSet.h"
#include "report-host/template/TemplateDefinition.h"

class QPainter;

namespace report {

/// Returns the text of a column or built-in field for the current row.
using FieldText = std::function<QString(const QString& name)>;

/// Replaces the fields of a pattern. The result is cut at kMostCharacters + 1 characters, so that the layout can detect
/// that it is too long.
QString Expand(const TextPattern& pattern, const FieldText& fields);

/// Paints the elements of a section. The painter's unit is the millimetre, its origin the section's top left corner.
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
