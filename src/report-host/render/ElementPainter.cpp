#include "report-host/render/ElementPainter.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

#include "platform/PlainFile.h"
#include "report-host/layout/TextLayout.h"
#include "report-host/render/RenderWatch.h"
#include "report-host/template/TemplateDefinition.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

/// The half-width and full-width digits of the text, as half-width digits.
QString DigitsOf(const QString& text) {
    QString digits;
    for (const QChar c : text) {
        const int digit = c.digitValue();
        if (digit >= 0) digits += QChar(u'0' + digit);
    }
    return digits;
}

void PaintFrame(QPainter& painter, const TemplateElement& element) {
    painter.setPen(element.penWidth > 0 ? QPen(element.colour, element.penWidth) : QPen(Qt::NoPen));
    painter.setBrush(element.fill.isValid() ? QBrush(element.fill) : QBrush(Qt::NoBrush));
    painter.drawRect(element.place);
}

}  // namespace

QString Expand(const TextPattern& pattern, const FieldText& fields) {
    QString text;
    for (const TextPiece& piece : pattern) {
        text += piece.isField ? fields(piece.text) : piece.text;
        if (text.size() > kMostCharacters) return text.left(kMostCharacters + 1);
    }
    return text;
}

void ElementPainter::Paint(QPainter& painter, const QList<TemplateElement>& elements, const FieldText& fields) {
    for (const TemplateElement& element : elements) {
        StopIfWanted();
        if (!element.onlyWith.isEmpty() && fields(element.onlyWith).isEmpty()) continue;
        switch (element.kind) {
            case ElementKind::Text:
                PaintText(painter, element, Expand(element.text, fields));
                break;
            case ElementKind::DigitBoxes:
                PaintDigitBoxes(painter, element, Expand(element.text, fields));
                break;
            case ElementKind::Picture:
                PaintPicture(painter, element, Expand(element.text, fields));
                break;
            case ElementKind::Frame:
                PaintFrame(painter, element);
                break;
            case ElementKind::Line:
                painter.setPen(QPen(element.colour, element.penWidth));
                painter.drawLine(element.place.topLeft(), element.place.bottomRight());
                break;
        }
    }
}

void ElementPainter::PaintText(QPainter& painter, const TemplateElement& element, const QString& text) {
    if (text.isEmpty()) return;
    const QSizeF room = element.style.vertical ? element.place.size().transposed() : element.place.size();
    painter.setPen(element.colour);
    DrawFitted(painter, FitText(fonts_, text, element.style, room.width(), room.height()), element.style,
               element.place);
}

void ElementPainter::PaintDigitBoxes(QPainter& painter, const TemplateElement& element, const QString& text) {
    const QString digits = DigitsOf(text);
    const double size = element.style.points * kMillimetresPerPoint;
    for (qsizetype i = 0; i < element.lefts.size(); ++i) {
        const QRectF box = element.place.translated(element.lefts[i], 0);
        if (element.fill.isValid()) {
            painter.setPen(QPen(element.fill, element.penWidth));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(box);
        }
        // A text with too many digits is no postal code; printing the first ones would give a wrong code.
        if (i >= digits.size() || digits.size() > element.lefts.size()) continue;
        const auto digit = fonts_.Shape(digits.mid(i, 1), element.style.face, false);
        painter.setPen(element.colour);
        DrawLine(painter, *digit, box.center() - fonts_.InkOf(*digit).center() * size, size);
    }
}

void ElementPainter::PaintPicture(QPainter& painter, const TemplateElement& element, const QString& path) {
    if (path.isEmpty()) return;
    const QImage& picture = Picture(path);
    if (picture.isNull()) return;
    const QSizeF size = QSizeF(picture.size()).scaled(element.place.size(), Qt::KeepAspectRatio);
    QRectF place(QPointF(), size);
    place.moveCenter(element.place.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, picture);
}

const QImage& ElementPainter::Picture(const QString& path) {
    if (QImage* known = pictures_.object(path)) return *known;
    // Paths in the database may have "\" as separator.
    QString file = path;
    if (!QFileInfo::exists(file)) file.replace(u'\\', u'/');
    QFile source(file);
    auto* picture = new QImage;
    // Unknown formats and special files give a null image.
    if (platform::OpenPlainFile(source)) *picture = QImageReader(&source).read();
    pictures_.insert(path, picture);
    return *picture;
}

}  // namespace report
