#include "screen/InputItem.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QValidator>

#include "screen/Form.h"
#include "text/HalfWidthKana.h"

using namespace Qt::StringLiterals;

bool LetsThrough(CharacterClasses classes, QChar sign) {
    if (classes & CharacterClass::All) return true;
    const ushort code = sign.unicode();
    if (code == u' ') return classes & CharacterClass::Space;
    if (code >= u'0' && code <= u'9') return classes & CharacterClass::Num;
    if (code >= u'a' && code <= u'z') return classes & CharacterClass::Lower;
    if (code >= u'A' && code <= u'Z') return classes & CharacterClass::Upper;
    if (code == u'+' || code == u'-' || code == u'.' || code == u',')
        return classes & (CharacterClass::NumExt | CharacterClass::Symbol);
    if (code > 0x20 && code < 0x7F) return classes & CharacterClass::Symbol;
    if (code >= 0xFF61 && code <= 0xFF9F) return classes & CharacterClass::Kana;
    return code > 0x7F && (classes & CharacterClass::DblByte);
}

namespace {

Qt::InputMethodHints HintsOf(ImeMode mode) {
    switch (mode) {
        case ImeMode::Off: return Qt::ImhPreferLatin | Qt::ImhNoPredictiveText;
        case ImeMode::Disabled: return Qt::ImhLatinOnly | Qt::ImhNoPredictiveText;
        case ImeMode::None:
        case ImeMode::On:
        case ImeMode::Hiragana:
        case ImeMode::HalfKatakana: break;
    }
    return Qt::ImhNone;
}

/// Bounds what is typed, pasted, dropped or committed by an input method. Qt asks after the fact, so the text as it
/// was before tells which part is new.
class Admission : public QValidator {
  public:
    explicit Admission(InputItem& item) : QValidator(&item), item_(item), before_(item.text()) {
        connect(&item, &QLineEdit::textChanged, this, [this](const QString& text) { before_ = text; });
    }

    State validate(QString& text, int& cursor) const override {
        int same = 0;
        while (same < cursor && same < before_.size() && text[same] == before_[same]) ++same;
        const QString inserted = text.mid(same, cursor - same);
        if (inserted.isEmpty()) return Acceptable;
        const QString rest = text.left(same) + text.mid(cursor);
        const int limit = item_.MaxLength();
        const int room = limit == 0 ? static_cast<int>(inserted.size()) * 2 : qMax(0, limit - static_cast<int>(rest.size()));
        const QString admitted = item_.Admitted(inserted, room);
        if (admitted.isEmpty()) return Invalid;
        text = text.left(same) + admitted + text.mid(cursor);
        cursor = same + static_cast<int>(admitted.size());
        return Acceptable;
    }

  private:
    const InputItem& item_;
    QString before_;
};

}  // namespace

InputItem::InputItem(Form& form, QWidget& parent, QString typeName, QString name, int index, ItemDesign design)
    : QLineEdit(&parent), Control(form, *this, std::move(typeName), std::move(name), index), design_(std::move(design)) {
    QLineEdit::setMaxLength(32767);
    setText(design_.text);
    setValidator(new Admission(*this));
    setInputMethodHints(HintsOf(design_.imeMode));
    setAttribute(Qt::WA_InputMethodEnabled, design_.imeMode != ImeMode::Disabled);
    setAccessibleName(Name());
    if (TypeName() == "xPass"_L1) setEchoMode(QLineEdit::Password);
    connect(this, &QLineEdit::textChanged, this, &InputItem::OnTextChanged);
}

QString InputItem::Admitted(const QString& inserted, int room) const {
    const QString converted = design_.imeMode == ImeMode::HalfKatakana ? ToHalfWidthKana(inserted) : inserted;
    QString admitted;
    for (const QChar sign : converted)
        if (LetsThrough(design_.classes, sign)) admitted += sign;
    admitted.truncate(room);
    if (!admitted.isEmpty() && admitted.back().isHighSurrogate()) admitted.chop(1);  // no half of a pair
    return admitted;
}

void InputItem::SetText(const QString& written) {
    if (written == text()) return;
    writing_ = true;
    setText(written);
    writing_ = false;
    if (Change) Change();
}

void InputItem::OnTextChanged(const QString&) {
    if (!writing_ && Change) Form::RunEvent(Change);
}

void InputItem::SetBackColor(const QColor& color) {
    QPalette colors = palette();
    colors.setColor(QPalette::Base, color);
    setPalette(colors);
}

void InputItem::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    if (DblClick) Form::RunEvent(DblClick);
}

void InputItem::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    const bool selected = hasSelectedText();
    menu.addAction(u"元に戻す(&U)"_s, this, &QLineEdit::undo)->setEnabled(isUndoAvailable());
    menu.addSeparator();
    menu.addAction(u"切り取り(&T)"_s, this, &QLineEdit::cut)->setEnabled(selected);
    menu.addAction(u"ｺﾋﾟｰ(&C)"_s, this, &QLineEdit::copy)->setEnabled(selected);
    menu.addAction(u"貼り付け(&P)"_s, this, &QLineEdit::paste)
        ->setEnabled(!QGuiApplication::clipboard()->text().isEmpty());
    menu.addAction(u"削除(&D)"_s, this, &QLineEdit::del)->setEnabled(selected);
    menu.addSeparator();
    menu.addAction(u"すべて選択(&A)"_s, this, &QLineEdit::selectAll)->setEnabled(!text().isEmpty());
    menu.exec(event->globalPos());
}
