// Part of PlainControls.h: Button and CheckItem.

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <cmath>

#include "screen/PlainControls.h"
#include "screen/SuiteStyle.h"

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

void Button::SetFaceless(const QRect& mark) {
    focusMark_ = new QWidget(parentWidget());
    focusMark_->setAttribute(Qt::WA_TransparentForMouseEvents);
    focusMark_->setAutoFillBackground(true);
    focusMark_->setPalette(kFocusColor);
    focusMark_->setGeometry(mark);
    focusMark_->hide();
}

void Button::paintEvent(QPaintEvent* /*event*/) {
    if (focusMark_ != nullptr) return;
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    // The style draws a picture of whole device pixels. At a fractional scale its border would be outside of the
    // button.
    const double scale = painter.device()->devicePixelRatioF();
    if (scale != std::floor(scale)) option.rect.adjust(0, 0, -1, -1);
    painter.drawControl(QStyle::CE_PushButton, option);
}

void Button::focusInEvent(QFocusEvent* event) {
    QPushButton::focusInEvent(event);
    if (focusMark_ != nullptr) focusMark_->show();
}

void Button::focusOutEvent(QFocusEvent* event) {
    QPushButton::focusOutEvent(event);
    if (focusMark_ != nullptr) focusMark_->hide();
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

void CheckItem::paintEvent(QPaintEvent* event) {
    if (!caption_.isEmpty()) return QCheckBox::paintEvent(event);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QSize box(style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, this),
                    style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, this));
    option.rect = QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, box, rect());
    QStylePainter painter(this);
    painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, option);
}

void CheckItem::SetValue(int value) {
    if ((value != 0) == isChecked()) return;
    {
        const QSignalBlocker quiet(this);
        setChecked(value != 0);
    }
    if (Click) Click();
}
