#include "screen/InputItem.h"

#include <QSignalBlocker>
#include <algorithm>

#include "screen/Form.h"
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
}

bool InputItem::UsesInputMethod() const {
    return design_.imeMode != ImeMode::Off && design_.imeMode != ImeMode::Disabled && TypeName() != u"xPass";
}

void InputItem::SetText(const QString& text) {
    if (text == this->text() && !Composing()) return;
    const bool changed = text != this->text();
    {
        const QSignalBlocker quiet(this);
        CancelComposition();
        setText(text);
    }
    text_ = text;
    if (changed && Change) Change();
}

QString InputItem::Converted(const QString& text) const {
    const bool kana = design_.imeMode == ImeMode::HalfKatakana;
    const bool halfWidth = kana || !(design_.classes & (CharacterClass::All | CharacterClass::DblByte));
    const QString converted = kana ? ToHalfWidthKana(text) : ComposeKana(text);
    return halfWidth ? ToHalfWidth(converted) : converted;
}

Intake InputItem::Limit(QString& text, int present) const {
    const QString wanted = Converted(text);
    const QString accepted = Filtered(wanted, design_.classes);
    text = design_.maxLength > 0 ? CutToLimit(accepted, design_.maxLength - present) : accepted;
    if (accepted != wanted) return Intake::Dropped;
    return text == accepted ? Intake::All : Intake::Cut;
}

Intake InputItem::Insert(const QString& text, bool /*composed*/) {
    const auto present = this->text().size() - selectedText().size();
    QString wanted = text;
    const Intake intake = Limit(wanted, static_cast<int>(present));
    if (!wanted.isEmpty()) insert(wanted);
    // A single key without an effect at the limit is what users expect.
    return intake == Intake::Cut && text.size() == 1 ? Intake::All : intake;
}

void InputItem::AcceptText() {
    if (text() == text_) return;
    const bool open = !isReadOnly() && Owner().TakesInput(*this);
    QString accepted = open ? text() : text_;
    // Neither typed nor set by the program: a screen reader has replaced the whole text.
    const Intake intake = isModified() || !open ? Intake::All : Limit(accepted, 0);
    if (accepted != text()) {
        const QSignalBlocker quiet(this);
        setText(accepted);
    }
    const bool changed = text() != text_;
    text_ = text();
    if (changed) EmitByUser(Change);
    if (intake != Intake::All) ShowIntake(intake);
}

bool Allows(CharacterClasses classes, QChar character) {
    const QChar::Category category = character.category();
    if (category == QChar::Other_Control || category == QChar::Separator_Line || category == QChar::Separator_Paragraph)
        return false;
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
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (Allows(classes, text[i]) && (pair || !text[i].isSurrogate()))
            kept += QStringView(text).mid(i, pair ? 2 : 1);
        if (pair) ++i;
    }
    return kept;
}

QString CutToLimit(const QString& text, int length) {
    if (text.size() <= length) return text;
    const int limit = std::max(length, 0);
    const bool splitsPair = limit > 0 && text.at(limit - 1).isHighSurrogate();
    return text.left(splitsPair ? limit - 1 : limit);
}
