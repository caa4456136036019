#include "screen/NumItem.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

#include "screen/Form.h"

using namespace Qt::StringLiterals;

NumItem::NumItem(Form& form, QWidget& parent, QString name)
    : QLineEdit(&parent), Control(form, *this, u"xNum"_s, std::move(name), -1) {
    setReadOnly(true);  // the value is typed digit by digit below; there is no free text to edit
    setAlignment(Qt::AlignCenter);
    setText(u"0"_s);
    setAccessibleName(Name());
}

void NumItem::SetValue(int value) {
    if (value == value_) return;
    value_ = value;
    setText(QString::number(value));
    selectAll();
    if (Change) Change();
}

void NumItem::Try(int value) {
    if (value < min_ || value > max_) return;
    Form::RunEvent([this, value] { SetValue(value); });
}

/// A second digit makes a longer number where the bounds have room for one; otherwise it begins anew.
void NumItem::TypeDigit(int digit) {
    const int longer = value_ * 10 + digit;
    Try(value_ > 0 && longer <= max_ ? longer : digit);
}

void NumItem::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    if (typed.size() == 1 && typed[0] >= u'0' && typed[0] <= u'9')
        TypeDigit(typed[0].digitValue());
    else if (event->key() == Qt::Key_Up)
        Try(value_ + 1);
    else if (event->key() == Qt::Key_Down)
        Try(value_ - 1);
    else if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
        Try(min_);
    else
        QLineEdit::keyPressEvent(event);
}

/// Full-width digits of an input method count as well.
void NumItem::inputMethodEvent(QInputMethodEvent* event) {
    for (const QChar sign : event->commitString())
        if (sign.digitValue() >= 0) TypeDigit(sign.digitValue());
    event->accept();
}

void NumItem::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addAction(u"ｺﾋﾟｰ(&C)"_s, this, [this] { QGuiApplication::clipboard()->setText(text()); });
    menu.addAction(u"書式コピー(&F)"_s, this, [this] { QGuiApplication::clipboard()->setText(text()); });
    menu.exec(event->globalPos());
}
