#include "screen/InputItem.h"

#include <QSignalBlocker>

#include "text/HalfWidthKana.h"

using namespace Qt::StringLiterals;

InputItem::InputItem(Form& form, QWidget& parent, QString typeName, QString name, int index, ItemDesign design)
    : LineEditItem(form, parent, std::move(typeName), std::move(name), index),
      design_(std::move(design)),
      text_(design_.text) {
    setText(design_.text);
    if (TypeName() == u"xPass") setEchoMode(QLineEdit::Password);
    ApplyImeMode();
    connect(this, &QLineEdit::textChanged, this, [this] { TakeOver(); });
}

void InputItem::ApplyImeMode() {
    Qt::InputMethodHints hints = inputMethodHints();
    if (design_.imeMode == ImeMode::Off) hints |= Qt::ImhPreferLatin;
    if (design_.classes == CharacterClass::Num) hints |= Qt::ImhDigitsOnly;
    setInputMethodHints(hints);
    // After the hints and the echo mode, which switch it on again.
    if (design_.imeMode == ImeMode::Disabled) setAttribute(Qt::WA_InputMethodEnabled, false);
}

void InputItem::SetText(const QString& text) {
    if (text == this->text()) return;
    {
        const QSignalBlocker quiet(this);
        setText(text);
    }
    text_ = text;
    if (Change) Change();
}

QString InputItem::Bounded(const QString& text, int present) const {
    const bool toKana = design_.imeMode == ImeMode::HalfKatakana;
    const QString kept = Admitted(toKana ? ToHalfWidthKana(text) : text, design_.classes);
    return design_.maxLength > 0 ? CutToRoom(kept, design_.maxLength - present) : kept;
}

void InputItem::Insert(const QString& text, bool /*composed*/) {
    const auto present = this->text().size() - selectedText().size();
    const QString wanted = Bounded(text, static_cast<int>(present));
    if (!wanted.isEmpty()) insert(wanted);
}

void InputItem::TakeOver() {
    if (text() == text_) return;
    // Neither typed nor written by the program: a screen reader has set the whole text at once.
    if (!isModified() && Bounded(text(), 0) != text()) {
        const QSignalBlocker quiet(this);
        setText(Bounded(text(), 0));
    }
    text_ = text();
    RaiseByUser(Change);
}
