#include "screen/Labels.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "screen/ToolTips.h"

namespace {

constexpr int kPadding = 3;
constexpr int kWrapping = static_cast<int>(Qt::AlignLeft | Qt::AlignTop) | Qt::TextWrapAnywhere;

}  // namespace

LabelItem::LabelItem(Form& form, QWidget& parent, QString typeName, QString name, int index)
    : QWidget(&parent),
      Control(form, *this, std::move(typeName), std::move(name), index),
      fore_(palette().color(QPalette::WindowText)),
      back_(palette().color(QPalette::Window)) {
    InstallAccessibleText();
    setAttribute(Qt::WA_OpaquePaintEvent);  // saves painting the background
}

void LabelItem::setAlignment(Qt::Alignment alignment) {
    alignment_ = alignment;
    update();
}

void LabelItem::SetEdge(Edge edge) {
    edge_ = edge;
    update();
}

void LabelItem::SetWrapped(bool wrapped) {
    wrapped_ = wrapped;
    update();
}

void LabelItem::Show(const QString& text) {
    if (text_ == text) return;
    text_ = text;
    update();
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void LabelItem::SetForeColor(const QColor& color) {
    if (fore_ == color) return;
    fore_ = color;
    update();
}

void LabelItem::SetBackColor(const QColor& color) {
    if (back_ == color) return;
    back_ = color;
    update();
}

void LabelItem::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), back_);
    PaintEdge(painter);
    if (text_.isEmpty()) return;
    painter.setPen(isEnabled() ? fore_ : palette().color(QPalette::Disabled, QPalette::WindowText));
    const QRect area = TextArea();
    if (wrapped_) {
        painter.drawText(area, kWrapping, text_);
    } else {
        PaintLine(painter, area);
    }
}

QRect LabelItem::TextArea() const { return rect().adjusted(kPadding, 1, -kPadding, -1); }

bool LabelItem::IsCut() const {
    const QRect area = TextArea();
    if (wrapped_) return fontMetrics().boundingRect(area, kWrapping, text_).height() > area.height();
    return fontMetrics().horizontalAdvance(text_) > area.width();
}

QString LabelItem::ToolTipText() const {
    QStringList lines;
    if (IsCut()) lines << text_;
    if (Hint) lines << Hint();
    lines.removeAll(QString());
    return lines.join(u'\n');
}

bool LabelItem::event(QEvent* event) {
    const QString tip = event->type() == QEvent::ToolTip ? ToolTipText() : QString();
    if (tip.isEmpty()) return QWidget::event(event);
    ShowToolTip(static_cast<QHelpEvent&>(*event), *this, tip);
    return true;
}

/// Lines of whole device pixels along the outer border. Lines of a logical pixel would be partly covered by the items
/// on a panel where the screen's scale is fractional.
void LabelItem::PaintEdge(QPainter& painter) const {
    if (edge_ == Edge::None) return;
    const QPalette& colors = palette();
    const double scale = painter.device()->devicePixelRatioF();
    const double line = std::max(1.0, std::floor(scale)) / scale;
    const bool raised = edge_ == Edge::Raised;
    const QColor first = colors.color(raised                ? QPalette::Light
                                      : edge_ == Edge::Line ? QPalette::Mid
                                                            : QPalette::Midlight);
    const QColor second = raised ? colors.color(QPalette::Dark) : first;
    painter.fillRect(QRectF(0, 0, width(), line), first);
    painter.fillRect(QRectF(0, 0, line, height()), first);
    painter.fillRect(QRectF(0, height() - line, width(), line), second);
    painter.fillRect(QRectF(width() - line, 0, line, height()), second);
}

void LabelItem::PaintLine(QPainter& painter, const QRect& area) const {
    const QFontMetrics metrics = painter.fontMetrics();
    // Measuring costs as much as drawing, and most texts are far too short to be elided.
    const bool fits = text_.size() * metrics.maxWidth() <= area.width();
    const QString line = fits ? text_ : metrics.elidedText(text_, Qt::ElideRight, area.width());
    int x = area.left();
    if (!(alignment_ & Qt::AlignLeft)) {
        const int free = area.width() - metrics.horizontalAdvance(line);
        x += alignment_ & Qt::AlignRight ? free : free / 2;
    }
    const int free = alignment_ & Qt::AlignTop ? 0 : area.height() - metrics.height();
    painter.drawText(QPoint(x, area.top() + free / 2 + metrics.ascent()), line);
}

void LabelItem::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) pressed_ = true;
}

void LabelItem::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false)) return;
    if (rect().contains(event->position().toPoint())) EmitByUser(Click);
}

void LabelItem::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) EmitByUser(DblClick);
}

QString Panel::AccessibleDescription() const {
    if (!HasChildren()) return LabelItem::AccessibleDescription();
    return isVisible() && !Shown().isEmpty() ? Shown() : TextsOnIt();
}

/// The visible texts in reading order. Computed only on request, so that writing a row stays cheap.
QString Panel::TextsOnIt() const {
    std::vector<const LabelItem*> items;
    for (const QObject* child : children()) {
        const auto* item = dynamic_cast<const LabelItem*>(child);
        if (item != nullptr && item->isVisible() && !item->Shown().isEmpty()) items.push_back(item);
    }
    std::stable_sort(items.begin(), items.end(), [](const LabelItem* a, const LabelItem* b) {
        return std::make_tuple(a->y(), a->x()) < std::make_tuple(b->y(), b->x());
    });
    QStringList texts;
    for (const LabelItem* item : items) texts << item->Shown();
    return texts.join(u' ');
}
