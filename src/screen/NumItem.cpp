// Part of InputItem.h: NumItem.

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QSignalBlocker>

#include "screen/InputItem.h"

using namespace Qt::StringLiterals;

namespace {

bool IsNumber(const QString& text) { return !text.isEmpty() && Filtered(text, CharacterClass::Num) == text; }

}  // namespace

NumItem::NumItem(Form& form, QWidget& parent, QString name)
    : LineEditItem(form, parent, u"xNum"_s, std::move(name), -1) {
    setInputMethodHints(Qt::ImhDigitsOnly);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAlignment(Qt::AlignCenter);
    Show();
    connect(this, &QLineEdit::textChanged, this, [this] { AcceptText(); });
}

void NumItem::FocusGiven(bool byPress) {
    digitTyped_ = false;
    LineEditItem::FocusGiven(byPress);
}

void NumItem::AddToMenu(QMenu& menu) {
    connect(menu.addAction(u"書式コピー(&F)"_s), &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setText(text()); });
}

void NumItem::Show() {
    const QSignalBlocker quiet(this);
    setText(QString::number(value_));
    if (hasFocus()) selectAll();
}

void NumItem::SetValue(int value) {
    if (value == value_) return;
    value_ = value;
    digitTyped_ = false;
    Show();
    if (Change) Change();
}

void NumItem::AcceptValue(int value) {
    const bool changed = value != value_;
    value_ = value;
    Show();
    if (changed) EmitByUser(Change);
}

void NumItem::Insert(const QString& text, bool composed) {
    const QString& digits = text;
    if (!IsNumber(digits)) return;
    int wanted = digits.toInt();
    if (composed && digitTyped_ && Within(value_ * 10 + wanted)) wanted += value_ * 10;
    if (!Within(wanted)) return;
    digitTyped_ = composed;
    AcceptValue(wanted);
}

void NumItem::keyPressEvent(QKeyEvent* event) {
    const int step = event->key() == Qt::Key_Up ? 1 : event->key() == Qt::Key_Down ? -1 : 0;
    if (step == 0) return LineEditItem::keyPressEvent(event);
    event->accept();
    digitTyped_ = false;
    if (Within(value_ + step)) AcceptValue(value_ + step);
}

// Deletion, cutting and text set by a screen reader bypass Insert; the result is accepted if it is a number within the
// bounds.
void NumItem::AcceptText() {
    const QString now = text();
    const int wanted = now.isEmpty() ? minValue_ : IsNumber(now) ? now.toInt() : value_;
    digitTyped_ = false;
    AcceptValue(Within(wanted) ? wanted : value_);
}
