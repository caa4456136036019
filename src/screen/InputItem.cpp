#include "screen/InputItem.h"

#include <QSignalBlocker>
#include <algorithm>

#include "text/mod文字変換.h"

using namespace Qt::StringLiterals;

InputItem::InputItem(Form& form, QWidget& parent, QString typeName, QString name, int index, ItemDesign design)
    : LineEditItem(form, parent, std::move(typeName), std::move(name), index),
      design_(std::move(design)),
      text_(design_.text) {
    setText(design_.text);
    if (TypeName() == u"xPass") setEchoMode(QLineEdit::Password);
    ApplyImeMode();
    connect(this, &QLineEdit::textChanged, this, [this] { AcceptText(); });
}

void InputItem::ApplyImeMode() {
    Qt::InputMethodHints hints = inputMethodHints();
    if (design_.imeMode == ImeMode::Off) hints |= Qt::ImhPreferLatin;
    if (design_.classes == CharacterClass::Num) hints |= Qt::ImhDigitsOnly;
    setInputMethodHints(hints);
    // After the hints and the echo mode, which set the attribute again.
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
    const QString kept = Filtered(toKana ? ToHalfWidthKana(text) : text, design_.classes);
    return design_.maxLength > 0 ? CutToLimit(kept, design_.maxLength - present) : kept;
}

void InputItem::Insert(const QString& text, bool /*composed*/) {
    const auto present = this->text().size() - selectedText().size();
    const QString wanted = Bounded(text, static_cast<int>(present));
    if (!wanted.isEmpty()) insert(wanted);
}

void InputItem::AcceptText() {
    if (text() == text_) return;
    // Neither typed nor set by the program: a screen reader has replaced the whole text.
    if (!isModified() && Bounded(text(), 0) != text()) {
        const QSignalBlocker quiet(this);
        setText(Bounded(text(), 0));
    }
    text_ = text();
    EmitByUser(Change);
}

bool Allows(CharacterClasses classes, QChar character) {
    if (character.category() == QChar::Other_Control) return false;
    if (classes & CharacterClass::All) return true;
    const char16_t code = character.unicode();
    if (code == u' ') return classes & CharacterClass::Space;
    if (code >= u'0' && code <= u'9') return classes & CharacterClass::Num;
    if (code >= u'a' && code <= u'z') return classes & CharacterClass::Lower;
    if (code >= u'A' && code <= u'Z') return classes & CharacterClass::Upper;
    const bool ofNumbers = code == u'+' || code == u'-' || code == u'.' || code == u',';
    if (ofNumbers) return (classes & CharacterClass::NumExt) || (classes & CharacterClass::Symbol);
    if (code > u' ' && code <= u'~') return classes & CharacterClass::Symbol;
    if (code >= u'\uFF61' && code <= u'\uFF9F') return classes & CharacterClass::Kana;
    return classes & CharacterClass::DblByte;
}

QString Filtered(const QString& text, CharacterClasses classes) {
    QString kept;
    kept.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [classes](QChar character) { return Allows(classes, character); });
    return kept;
}

QString CutToLimit(const QString& text, int length) {
    if (text.size() <= length) return text;
    const int limit = std::max(length, 0);
    const bool splitsPair = limit > 0 && text.at(limit - 1).isHighSurrogate();
    return text.left(splitsPair ? limit - 1 : limit);
}
