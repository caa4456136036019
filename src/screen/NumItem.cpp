// Part of InputItem.h: NumItem.

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QSignalBlocker>
#include <optional>

#include "screen/Form.h"
#include "screen/InputItem.h"
#include "text/mod文字変換.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

/// nullopt also for a number that is too large for int.
std::optional<int> NumberIn(const QString& text) {
    bool number = !text.isEmpty() && Filtered(text, CharacterClass::Num) == text;
    const int value = number ? text.toInt(&number) : 0;
    return number ? std::optional(value) : std::nullopt;
}

}  // namespace

NumItem::NumItem(Form& form, QWidget& parent, QString name)
    : LineEditItem(form, parent, u"xNum"_s, std::move(name), -1) {
    setInputMethodHints(Qt::ImhDigitsOnly);
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
    if (value == value_ && text() == QString::number(value)) return;
    const bool changed = value != value_;
    value_ = value;
    digitTyped_ = false;
    Show();
    if (changed && Change) Change();
}

void NumItem::AcceptValue(int value) {
    const bool changed = value != value_;
    value_ = value;
    Show();
    if (changed) EmitByUser(Change);
}

Intake NumItem::Insert(const QString& text, bool composed) {
    const std::optional<int> digits = NumberIn(TrimBlanks(ToHalfWidth(text)));
    if (!digits) return Intake::Dropped;
    const qint64 appended = qint64(value_) * 10 + *digits;
    const bool append = composed && digitTyped_ && Within(appended);
    const qint64 wanted = append ? appended : *digits;
    if (!Within(wanted)) return Intake::Dropped;
    digitTyped_ = composed;
    AcceptValue(static_cast<int>(wanted));
    return Intake::All;
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
    const int wanted = now.isEmpty() ? minValue_ : NumberIn(now).value_or(value_);
    digitTyped_ = false;
    const bool accepted = Within(wanted) && Owner().TakesInput(*this);
    AcceptValue(accepted ? wanted : value_);
}
