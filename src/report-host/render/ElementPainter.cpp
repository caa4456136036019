#include "report-host/render/ElementPainter.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <utility>

#include "platform/PlainFile.h"
#include "report-host/layout/LatinText.h"
#include "report-host/layout/TextLayout.h"
#include "report-host/render/RenderWatch.h"
#include "report-host/template/TemplateDefinition.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

// A postal code that does not fit into the boxes is printed below them, before the address begins.
constexpr double kForeignCodePoints = 11, kForeignCodeGap = 0.5, kForeignCodeHeight = 4;

// Of a text that continues a line, this share of its length is reserved, but no more than this share of its box.
constexpr double kReservedOfText = 0.8, kReservedOfBox = 0.6;

/// The half-width and full-width digits of the text, as half-width digits.
QString DigitsOf(const QString& text) {
    QString digits;
    for (const QChar c : text) {
        const int digit = c.digitValue();
        if (digit >= 0) digits += QChar(u'0' + digit);
    }
    return digits;
}

/// A postal code as digits, if the text is nothing else.
QString PostalDigits(const QString& text) {
    static const QRegularExpression shape(
        u"^[\\s\u3000〒]*([0-9０-９]{3})[\\s\u3000]*[-－−‐–—―ー]?[\\s\u3000]*([0-9０-９]{4})"
        u"[\\s\u3000]*$"_s);
    return shape.match(text).hasMatch() ? DigitsOf(text) : QString();
}

bool IsPostalCode(const TemplateElement& element) {
    return std::any_of(element.text.begin(), element.text.end(),
                       [](const TextPiece& piece) { return piece.isField && piece.text.endsWith(u"郵便番号"_s); });
}

bool IsAddress(const TextPiece& piece) { return piece.isField && piece.text.contains(u"住所"_s); }

bool NeedsBlank(const QString& before, const QString& after) {
    if (before.isEmpty() || after.isEmpty() || before.back() == u' ' || after.front() == u' ') return false;
    const auto hasLetter = [](const QString& text) { return std::any_of(text.begin(), text.end(), IsLatinLetter); };
    return IsLatinText(before) && IsLatinText(after) && (hasLetter(before) || hasLetter(after));
}

void PaintFrame(QPainter& painter, const TemplateElement& element) {
    painter.setPen(element.penWidth > 0 ? QPen(element.colour, element.penWidth) : QPen(Qt::NoPen));
    painter.setBrush(element.fill.isValid() ? QBrush(element.fill) : QBrush(Qt::NoBrush));
    painter.drawRect(element.place);
}

bool IsWanted(const TemplateElement& element, const FieldText& fields) {
    return (element.onlyWith.isEmpty() || !fields(element.onlyWith).isEmpty()) &&
           (element.onlyWithout.isEmpty() || fields(element.onlyWithout).isEmpty());
}

/// Distance of a text from the line that it continues, in millimetres.
double GapBefore(const TemplateElement& element) { return element.style.points * kMillimetresPerPoint; }

}  // namespace

QString Expand(const TextPattern& pattern, const FieldText& fields) {
    QString text, previous;
    for (qsizetype i = 0; i < pattern.size() && text.size() <= kMostCharacters; ++i) {
        const TextPiece& piece = pattern[i];
        const QString value = piece.isField ? fields(piece.text) : piece.text;
        // Text before or after a column separates it.
        const bool isNextPart = i > 0 && IsAddress(piece) && IsAddress(pattern[i - 1]) && piece.before.isEmpty() &&
                                pattern[i - 1].after.isEmpty();
        if (isNextPart && NeedsBlank(previous, value)) text += u' ';
        if (!value.isEmpty()) text.append(piece.before).append(value).append(piece.after);
        if (!value.isEmpty() || !IsAddress(piece)) previous = value;
    }
    return text.left(kMostCharacters + 1);
}

void ElementPainter::Paint(QPainter& painter, const QList<TemplateElement>& elements, const FieldText& fields) {
    lastLine_ = {};
    for (qsizetype i = 0; i < elements.size(); ++i) {
        StopIfWanted();
        const TemplateElement* next = i + 1 < elements.size() ? &elements[i + 1] : nullptr;
        const QRectF line = std::exchange(lastLine_, {});
        if (!IsWanted(elements[i], fields)) continue;
        if (elements[i].kind == ElementKind::Text)
            PaintText(painter, elements[i], {line, next}, fields);
        else
            PaintOther(painter, elements[i], fields);
    }
}

void ElementPainter::PaintOther(QPainter& painter, const TemplateElement& element, const FieldText& fields) {
    switch (element.kind) {
        case ElementKind::Text:
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

void ElementPainter::PaintText(QPainter& painter, const TemplateElement& element, const Neighbours& neighbours,
                               const FieldText& fields) {
    QRectF place = element.place;
    const double begin = neighbours.line.right() + GapBefore(element);
    if (element.follows && neighbours.line.intersects(place) && begin < place.right()) place.setLeft(begin);
    const QString text = Expand(element.text, fields);
    if (text.isEmpty()) return;
    const bool vertical = element.style.vertical;
    TextBox box{.length = vertical ? place.height() : place.width(),
                .depth = vertical ? place.width() : place.height()};
    FittedText fitted = FitText(fonts_, text, element.style, box);
    if (fitted.lines.size() > 1) box.reserved = ReservedFor(element, neighbours.next, fields);
    if (box.reserved > 0) fitted = FitText(fonts_, text, element.style, box);
    painter.setPen(element.colour);
    lastLine_ = DrawFitted(painter, fitted, element.style, place);
}

double ElementPainter::ReservedFor(const TemplateElement& element, const TemplateElement* next,
                                   const FieldText& fields) {
    if (!next || !next->follows || !next->place.intersects(element.place) || !IsWanted(*next, fields)) return 0;
    const QString text = Expand(next->text, fields);
    if (text.isEmpty()) return 0;
    const double unlimited = next->place.width() * 1000;
    const FittedText natural = FitText(fonts_, text, next->style, {unlimited, next->place.height()});
    const double length =
        std::min(natural.lines[0]->length * natural.size * kReservedOfText, next->place.width() * kReservedOfBox);
    return std::max(0.0, element.place.right() - (next->place.right() - length - GapBefore(*next)));
}

void ElementPainter::PaintDigitBoxes(QPainter& painter, const TemplateElement& element, const QString& text) {
    const bool isCode = IsPostalCode(element);
    const QString digits = isCode ? PostalDigits(text) : DigitsOf(text);
    const double size = element.style.points * kMillimetresPerPoint;
    QRectF all;
    for (qsizetype i = 0; i < element.lefts.size(); ++i) {
        const QRectF box = element.place.translated(element.lefts[i], 0);
        all |= box;
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
    if (isCode && digits.isEmpty()) PaintForeignCode(painter, element, all, text.trimmed());
}

void ElementPainter::PaintForeignCode(QPainter& painter, const TemplateElement& element, const QRectF& boxes,
                                      const QString& code) {
    if (code.isEmpty()) return;
    TextStyle style = element.style;
    style.along = Along::Start;  // the address begins below the last boxes
    style.points = std::min(style.points, kForeignCodePoints);
    style.leastPoints = std::min(style.leastPoints, style.points);
    const QRectF place(boxes.left(), boxes.bottom() + kForeignCodeGap, boxes.width(), kForeignCodeHeight);
    painter.setPen(element.colour);
    DrawFitted(painter, FitText(fonts_, code, style, {place.width(), place.height()}), style, place);
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
