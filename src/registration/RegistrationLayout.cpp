// Part of StaffItems.h: the layout of the form.

#include "registration/StaffItems.h"

#include <QRect>

#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/fonts/Fonts.h"

using namespace Qt::StringLiterals;

namespace {

// Pixels.
constexpr int kMargin = 12;
constexpr int kTop = 50;   // first line
constexpr int kLine = 31;  // pitch of the lines
constexpr int kHeight = 27;
constexpr int kTitleWidth = 92;
constexpr int kGap = 4;
constexpr int kDigit = 8;  // half-width character of the items' font
constexpr int kFrame = 16;
constexpr int kListWidth = 200;
constexpr int kEraWidth = 160;
constexpr int kItemColumn = kTitleWidth + kGap;                        // within a column
constexpr int kListColumn = kItemColumn + 3 * kDigit + kFrame + kGap;  // after the widest code, so that lists align
constexpr int kColumns[] = {kMargin, kMargin + kListColumn + kListWidth + 30};
constexpr int kWidth = kMargin + kItemColumn + 80 * kDigit + kFrame + kMargin;  // the memo fills a line

/// Line and column of each item, in the order of kStaffItems.
struct Place {
    int line, column;
};
constexpr Place kPlaces[kStaffItemCount] = {{1, 0},  {1, 1},  {2, 0},  {3, 0},  {4, 0},  {5, 0},  {6, 0},
                                            {7, 0},  {7, 1},  {8, 0},  {9, 0},  {9, 1},  {10, 0}, {10, 1},
                                            {11, 0}, {11, 1}, {12, 0}, {13, 0}, {13, 1}, {14, 0}};
constexpr int kLastLine = 14;

QRect At(int left, int line, int width) { return {left, kTop + line * kLine, width, kHeight}; }

void MakeTitle(Form& form, const QString& name, const QString& caption, const QRect& place) {
    auto* title = new Label(form, form, u"itm_ttl_"_s + name, -1, caption);
    title->setFont(SuiteFont(SuiteFace::PGothic, 11));
    title->setAlignment(Qt::AlignCenter);
    title->setGeometry(place);
}

/// A read-only text.
void MakeShown(Form& form, const QString& name, const QRect& place) {
    auto* label = new Label(form, form, name, -1, QString());
    label->SetEdgeless();
    label->SetBackColor(form.palette().color(QPalette::Window));
    label->setFont(SuiteFont(SuiteFace::Mincho, 12));
    label->setGeometry(place);
}

ItemDesign DesignOf(const StaffItem& item) {
    ItemDesign design;
    design.maxLength = item.bytes;
    switch (item.kind) {
        case StaffItemKind::Text:
            design.imeMode = ImeMode::Hiragana;
            break;
        case StaffItemKind::Kana:
            design.imeMode = ImeMode::HalfKatakana;
            break;
        case StaffItemKind::HalfWidth:
            design.imeMode = ImeMode::Disabled;
            design.classes = CharacterClass::Kana | CharacterClass::Lower | CharacterClass::Num |
                             CharacterClass::NumExt | CharacterClass::Space | CharacterClass::Symbol |
                             CharacterClass::Upper;
            break;
        case StaffItemKind::Code:
        case StaffItemKind::Date:
            design.imeMode = ImeMode::Disabled;
            design.classes = CharacterClass::Num;
            break;
    }
    return design;
}

void MakeList(Form& form, const StaffItem& item, const QRect& place) {
    auto* list = new ComboItem(form, form, item.list.toString());
    list->setFont(SuiteFont(SuiteFace::PMincho, 12));
    list->setGeometry(place);
    // Tab stops only at the code, from which the list is opened.
    list->SetTabStop(false);
}

void MakeItem(Form& form, const StaffItem& item, const Place& place) {
    const QString name = item.column.toString();
    const int left = kColumns[place.column], width = item.bytes * kDigit + kFrame;
    MakeTitle(form, name, item.caption.toString(), At(left, place.line, kTitleWidth));
    auto* input = new InputItem(form, form, u"xField"_s, name, -1, DesignOf(item));
    input->setFont(SuiteFont(SuiteFace::Mincho, 12));
    input->setGeometry(At(left + kItemColumn, place.line, width));
    if (item.kind == StaffItemKind::Code) MakeList(form, item, At(left + kListColumn, place.line, kListWidth));
    if (item.kind == StaffItemKind::Date)
        MakeShown(form, name + u"年号"_s, At(left + kItemColumn + width + kGap, place.line, kEraWidth));
}

void MakeHead(Form& form) {
    auto* title = new Panel(form, form, u"prg_ttl"_s, -1, u"要員台帳更新"_s);
    title->setFont(SuiteFont(SuiteFace::PGothic, 14));
    title->SetBackColor(kCaptionColor);
    title->setGeometry(kMargin, 8, kWidth - 2 * kMargin, 32);
    MakeTitle(form, u"担当者コード"_s, u"担当者コード"_s, At(kColumns[0], 0, kTitleWidth));
    MakeShown(form, u"担当者コード"_s, At(kColumns[0] + kItemColumn + 4, 0, 80));
}

void MakeStamp(Form& form, const QString& name, int column) {
    MakeTitle(form, name, name, At(kColumns[column], kLastLine + 1, kTitleWidth));
    MakeShown(form, name, At(kColumns[column] + kItemColumn + 4, kLastLine + 1, 200));
}

void MakeButtons(Form& form) {
    constexpr int kButtonWidth = 120, kButtonHeight = 36;
    const int top = kTop + (kLastLine + 2) * kLine + 10;
    auto* notice = new Label(form, form, u"お知らせ"_s, -1, QString());
    notice->SetEdgeless();
    notice->SetBackColor(form.palette().color(QPalette::Window));
    notice->SetForeColor(Qt::red);
    notice->setFont(SuiteFont(SuiteFace::PGothic, 12));
    notice->setGeometry(kMargin, top, 300, kButtonHeight);
    int left = kWidth - kMargin - 3 * kButtonWidth - 2 * kMargin;
    for (const QString& caption : {u"保存"_s, u"削除"_s, u"終了"_s}) {
        auto* button = new Button(form, form, u"btn_"_s + caption, caption);
        button->setFont(SuiteFont(SuiteFace::PGothic, 12));
        button->setGeometry(left, top, kButtonWidth, kButtonHeight);
        left += kButtonWidth + kMargin;
    }
    form.setFixedSize(kWidth, top + kButtonHeight + kMargin);
}

}  // namespace

void BuildRegistrationForm(Form& form) {
    MakeHead(form);
    for (size_t i = 0; i < kStaffItemCount; ++i) MakeItem(form, kStaffItems[i], kPlaces[i]);
    MakeStamp(form, u"登録日付"_s, 0);
    MakeStamp(form, u"更新日付"_s, 1);
    MakeButtons(form);
}
