// Part of PlainControls.h: Button and CheckItem.

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <cmath>

#include "screen/PlainControls.h"

using namespace Qt::StringLiterals;

Button::Button(Form& form, QWidget& parent, QString name, const QString& caption)
    : QPushButton(&parent), Control(form, *this, u"SSCommand"_s, std::move(name), -1) {
    SetTabStop(true);
    setAccessibleName(Name());
    setFocusPolicy(Qt::StrongFocus);
    setAutoDefault(false);
    SetCaption(caption);
    connect(this, &QPushButton::clicked, this, [this] {
        EmitByUser([this] {
            // A screen reader presses without moving the focus. Text being typed elsewhere is accepted on LostFocus.
            if (!byInput_) SetFocus();
            if (Click) Click();
        });
    });
}

void Button::SetCaption(const QString& caption) {
    caption_ = caption;
    setText(QString(caption).replace(u'&', u"&&"_s));
    setAccessibleDescription(caption);
}

void Button::SetForeColor(const QColor& color) {
    if (ForeColor() == color) return;
    QPalette colors = palette();
    colors.setColor(QPalette::Active, QPalette::ButtonText, color);
    colors.setColor(QPalette::Inactive, QPalette::ButtonText, color);
    setPalette(colors);
}

void Button::SetFaceless() { faceless_ = true; }

void Button::paintEvent(QPaintEvent* /*event*/) {
    if (faceless_) return;
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    // The style draws a picture of whole device pixels. At a fractional scale its border would be outside of the
    // button.
    const double scale = painter.device()->devicePixelRatioF();
    if (scale != std::floor(scale)) option.rect.adjust(0, 0, -1, -1);
    painter.drawControl(QStyle::CE_PushButton, option);
}

void Button::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) return QPushButton::keyPressEvent(event);
    event->accept();
    const QScopedValueRollback<bool> byInput(byInput_, true);
    if (!event->isAutoRepeat()) click();
}

void Button::keyReleaseEvent(QKeyEvent* event) {
    const QScopedValueRollback<bool> byInput(byInput_, true);
    QPushButton::keyReleaseEvent(event);
}

void Button::mouseReleaseEvent(QMouseEvent* event) {
    const QScopedValueRollback<bool> byInput(byInput_, true);
    const DoubleClickGuard guard(*this, *event);
    QPushButton::mouseReleaseEvent(event);
}

CheckItem::CheckItem(Form& form, QWidget& parent, QString name, int index, const QString& caption)
    : QCheckBox(&parent), Control(form, *this, u"CheckBox"_s, std::move(name), index) {
    SetTabStop(true);
    setAccessibleName(Name());
    setFocusPolicy(Qt::StrongFocus);
    SetCaption(caption);
    connect(this, &QCheckBox::toggled, this, [this] { EmitByUser(Click); });
}

void CheckItem::SetCaption(const QString& caption) {
    caption_ = caption;
    setText(QString(caption).replace(u'&', u"&&"_s));
    setAccessibleDescription(caption);
}

void CheckItem::SetValue(int value) {
    if ((value != 0) == isChecked()) return;
    {
        const QSignalBlocker quiet(this);
        setChecked(value != 0);
    }
    if (Click) Click();
}
