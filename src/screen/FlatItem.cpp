#include "screen/FlatItem.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

#include "screen/Form.h"

namespace {

constexpr int kPadding = 3;

/// The text as name and the control's name as description; nothing at all of a hidden item.
class FlatItemAccessible : public QAccessibleWidget {
  public:
    explicit FlatItemAccessible(FlatItem* item) : QAccessibleWidget(item, QAccessible::StaticText), item_(*item) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Description) return item_.Name();
        if (kind != QAccessible::Name && kind != QAccessible::Value) return {};
        return item_.Visible() ? item_.Shown() : QString();
    }

  private:
    const FlatItem& item_;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* item = dynamic_cast<FlatItem*>(object);
    return item == nullptr ? nullptr : new FlatItemAccessible(item);
}

}  // namespace

void InstallFlatItemAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(MakeAccessible);
        return true;
    }();
    Q_UNUSED(installed);
}

FlatItem::FlatItem(Form& form, QWidget& parent, QString typeName, QString name, int index)
    : QWidget(&parent),
      Control(form, *this, std::move(typeName), std::move(name), index),
      fore_(palette().color(QPalette::WindowText)),
      back_(palette().color(QPalette::Window)) {
    InstallFlatItemAccessibility();
    setAttribute(Qt::WA_OpaquePaintEvent);  // nothing behind has to be painted first
}

void FlatItem::Show(const QString& text) {
    if (text_ == text) return;
    text_ = text;
    update();
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void FlatItem::SetForeColor(const QColor& color) {
    if (fore_ == color) return;
    fore_ = color;
    update();
}

void FlatItem::SetBackColor(const QColor& color) {
    if (back_ == color) return;
    back_ = color;
    update();
}

void FlatItem::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), back_);
    const QPalette& colors = palette();
    if (edge_ == Edge::Line || edge_ == Edge::Sunken) {
        painter.setPen(colors.color(edge_ == Edge::Line ? QPalette::Mid : QPalette::Midlight));
        painter.drawRect(0, 0, width() - 1, height() - 1);
    } else if (edge_ == Edge::Raised) {
        painter.setPen(colors.color(QPalette::Light));
        painter.drawLine(0, 0, width() - 1, 0);
        painter.drawLine(0, 0, 0, height() - 1);
        painter.setPen(colors.color(QPalette::Dark));
        painter.drawLine(0, height() - 1, width() - 1, height() - 1);
        painter.drawLine(width() - 1, 0, width() - 1, height() - 1);
    }
    if (text_.isEmpty()) return;
    painter.setPen(fore_);
    const QRect area = rect().adjusted(kPadding, 1, -kPadding, -1);
    if (wrapped_) {
        painter.drawText(area, static_cast<int>(Qt::AlignLeft | Qt::AlignTop) | Qt::TextWrapAnywhere, text_);
        return;
    }
    const QFontMetrics metrics = painter.fontMetrics();
    const bool fits = metrics.horizontalAdvance(text_) <= area.width();
    painter.drawText(area, static_cast<int>(alignment_) | Qt::TextSingleLine,
                     fits ? text_ : metrics.elidedText(text_, Qt::ElideRight, area.width()));
}

void FlatItem::mousePressEvent(QMouseEvent* event) { event->accept(); }
void FlatItem::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    if (DblClick) Form::RunEvent(DblClick);
}
void FlatItem::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) && Click)
        Form::RunEvent(Click);
}
