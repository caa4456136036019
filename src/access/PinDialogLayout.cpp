// Part of msg暗証番号確認.h: the layout of the dialog.

#include "access/msg暗証番号確認.h"

#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/fonts/Fonts.h"

using namespace Qt::StringLiterals;

namespace {

// Pixels.
constexpr int kMargin = 12;
constexpr int kLine = 34;  // pitch of the lines
constexpr int kHeight = 28;
constexpr int kTitleWidth = 100;
constexpr int kItemLeft = kMargin + kTitleWidth + 4;
constexpr int kNameWidth = 200;
constexpr int kButtonWidth = 120;
constexpr int kButtonHeight = 32;
constexpr int kWidth = kItemLeft + kNameWidth + kMargin;

QRect Place(int column, int line, int width) { return {column, kMargin + line * kLine, width, kHeight}; }

void MakeTitle(Form& form, int line, const QString& name, const QString& caption) {
    auto* title = new Panel(form, form, name, -1, caption);
    title->setFont(SuiteFont(SuiteFace::PMincho, 12));
    title->SetBackColor(kCaptionColor);
    title->setGeometry(Place(kMargin, line, kTitleWidth));
}

void MakeItem(Form& form, int line, const QString& type, const QString& name, const ItemDesign& design, int width,
              bool displayOnly = false) {
    auto* item = new InputItem(form, form, type, name, -1, design);
    item->setFont(SuiteFont(SuiteFace::PMincho, 12));
    item->setGeometry(Place(kItemLeft, line, width));
    item->setReadOnly(displayOnly);
    // Not white, since it accepts no input.
    if (displayOnly) item->SetBackColor(form.palette().color(QPalette::Window));
}

void MakeButton(Form& form, int left, const QString& name, const QString& caption) {
    auto* button = new Button(form, form, name, caption);
    button->setFont(SuiteFont(SuiteFace::PGothic, 12));
    button->setGeometry(left, kMargin + 3 * kLine + 6, kButtonWidth, kButtonHeight);
}

}  // namespace

void BuildPinDialog(Form& form) {
    ItemDesign code, name, pin;
    code.maxLength = 5;
    code.imeMode = ImeMode::Off;
    code.classes = CharacterClass::Num;
    name.imeMode = ImeMode::On;
    pin.imeMode = ImeMode::Disabled;
    MakeTitle(form, 0, u"itm_ttl_担当者コード"_s, u"コード"_s);
    MakeItem(form, 0, u"xField"_s, u"担当者コード"_s, code, 70);
    MakeTitle(form, 1, u"itm_ttl_担当者名"_s, u"担当者氏名"_s);
    MakeItem(form, 1, u"xField"_s, u"担当者名"_s, name, kNameWidth, true);
    MakeTitle(form, 2, u"itm_ttl_暗証番号"_s, u"暗証番号"_s);
    MakeItem(form, 2, u"xPass"_s, u"暗証番号"_s, pin, kNameWidth);
    const int right = kWidth - kMargin - kButtonWidth;
    MakeButton(form, right - kButtonWidth - kMargin, u"btn_OK"_s, u"OK"_s);
    MakeButton(form, right, u"btn_キャンセル"_s, u"ｷｬﾝｾﾙ"_s);
    form.setFixedSize(kWidth, kMargin + 3 * kLine + 6 + kButtonHeight + kMargin);
}
