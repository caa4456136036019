// Part of frm要員名簿照会.h: the layout of title and head.

#include <QRect>

#include "inquiry/SearchConditions.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/fonts/Fonts.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLine = 28;    // line pitch
constexpr int kHeight = 26;  // of an item
constexpr int kTop = 44;     // first line of the head
constexpr int kButtonWidth = 126;
constexpr int kRangeColumn = 8;
constexpr int kTextColumn = 282;
constexpr int kKindColumn = 748;

QRect Place(int column, int line, int width) { return {column, kTop + line * kLine, width, kHeight}; }

void MakeSelectionButton(Form& form, const ConditionSelection& selection, const QRect& place) {
    auto* button = new Button(form, form, selection.button, selection.caption);
    button->setFont(SuiteFont(SuiteFace::PGothic, 10));
    button->setGeometry(place);
}

void MakeInput(Form& form, const QString& name, const ItemDesign& design, const QRect& place) {
    auto* item = new InputItem(form, form, u"xField"_s, name, -1, design);
    item->setFont(SuiteFont(SuiteFace::PMincho, 12));
    item->setGeometry(place);
}

ItemDesign CodeDesign(const RangeCondition& range) {
    return {.maxLength = static_cast<int>(range.mask.size()),
            .imeMode = ImeMode::Off,
            .classes = CharacterClass::Num,
            .minValue = 0,
            .maxValue = range.maxValue,
            .text = range.mask};
}

/// The title of the range is the button that opens its selection window.
void BuildRange(Form& form, const RangeCondition& range, int line) {
    constexpr int kCodeWidth = 60;
    const int from = kRangeColumn + kButtonWidth + 4;
    MakeSelectionButton(form, range.selection, Place(kRangeColumn, line, kButtonWidth));
    MakeInput(form, range.fromItem, CodeDesign(range), Place(from, line, kCodeWidth));
    auto* until = new Label(form, form, u"lab_範囲"_s, line, u"～"_s);
    until->setFont(SuiteFont(SuiteFace::PGothic, 10));
    until->SetEdgeless();
    until->setAlignment(Qt::AlignCenter);
    until->setGeometry(Place(from + kCodeWidth, line, 20));
    MakeInput(form, range.toItem, CodeDesign(range), Place(from + kCodeWidth + 20, line, kCodeWidth));
}

void BuildText(Form& form, const TextCondition& text, int line) {
    MakeSelectionButton(form, text.selection, Place(kTextColumn, line, kButtonWidth));
    MakeInput(form, text.item, text.design, Place(kTextColumn + kButtonWidth + 4, line, text.width));
}

void BuildKind(Form& form, const KindCondition& kind, int line) {
    auto* title = new Panel(form, form, u"itm_ttl_"_s + kind.item, -1, kind.item);
    title->setFont(SuiteFont(SuiteFace::PGothic, 10));
    title->SetTitle();
    title->setGeometry(Place(kKindColumn, line, 82));
    auto* number = new NumItem(form, form, kind.item);
    number->setFont(SuiteFont(SuiteFace::PMincho, 12));
    number->setGeometry(Place(kKindColumn + 84, line, 28));
    auto* list = new ComboItem(form, form, kind.listItem);
    list->setFont(SuiteFont(SuiteFace::PMincho, 12));
    list->setGeometry(Place(kKindColumn + 114, line, 142));
}

void BuildCommands(Form& form) {
    const auto make = [&form](const QString& name, const QString& caption, const QRect& place) {
        auto* button = new Button(form, form, name, caption);
        button->setFont(SuiteFont(SuiteFace::PGothic, 12));
        button->setGeometry(place);
    };
    const int top = kTop + 3 * kLine + 4;
    make(u"btn_集計検索"_s, u"検索"_s, {kKindColumn, top, 126, 2 * kLine - 8});
    make(u"btn_画面クリア"_s, u"画面ｸﾘｱ"_s, {kKindColumn + 130, top, 126, 2 * kLine - 8});
    // Invisible border between head and list: takes the focus at the end of the head.
    auto* headEnd = new Button(form, form, u"ヘッド終了"_s, QString());
    headEnd->SetFaceless({kKindColumn + 258, top, 6, 2 * kLine - 8});
    headEnd->setGeometry(kKindColumn + 258, top, 2, 2);
}

}  // namespace

void BuildTitlePanel(Form& form) {
    auto* title = new Panel(form, form, u"prg_ttl"_s, -1, u"要員名簿照会"_s);
    title->setFont(SuiteFont(SuiteFace::PGothic, 14));
    title->SetBackColor(kCaptionColor);
    title->setGeometry(8, 6, 900, 32);
    auto* manual = new Panel(form, form, u"manualpanel"_s, -1, u"Manual"_s);
    manual->setFont(SuiteFont(SuiteFace::PGothic, 10));
    manual->setGeometry(912, 6, 92, 32);
}

void BuildHeadPanel(Form& form) {
    int line = 0;
    for (const RangeCondition& range : RangeConditions()) BuildRange(form, range, line++);
    line = 0;
    for (const TextCondition& text : TextConditions()) BuildText(form, text, line++);
    line = 0;
    for (const KindCondition& kind : KindConditions()) BuildKind(form, kind, line++);
    BuildCommands(form);
}
