// Layout of the main form (MainFormPanels.h): head.

#include <QRect>

#include "inquiry/ConditionProcedures.h"
#include "mainform/MainFormPanels.h"
#include "screen/Buttons.h"
#include "screen/ComboItem.h"
#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "screen/NumItem.h"
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

void MakeSelectionButton(Form& form, const QString& name, const QString& caption, const QRect& place) {
    auto* button = new Button(form, form, name, caption);
    button->setFont(SuiteFont(SuiteFace::PGothic, 10));
    button->setGeometry(place);
}

InputItem& MakeInput(Form& form, const QString& name, const ItemDesign& design, const QRect& place) {
    auto* item = new InputItem(form, form, u"xField"_s, name, -1, design);
    item->setFont(SuiteFont(SuiteFace::PMincho, 12));
    item->setGeometry(place);
    return *item;
}

// The title of a range is the button that opens its selection window.
struct RangeLayout {
    Range range;
    QStringView button;
    QStringView caption;
    int length;
    int maxValue;
};
constexpr RangeLayout kRanges[] = {
    {Range::Department, u"btn_部門個別選択", u"部門コード範囲", 3, 999},
    // Intentionally not "セクションコード範囲".
    {Range::Section, u"btn_セクション個別選択", u"所属コード範囲", 3, 999},
    {Range::Position, u"btn_役職個別選択", u"役職コード範囲", 2, 99},
    {Range::Staff, u"btn_担当者個別選択", u"担当者コード範囲", 5, 999999},
};

ItemDesign CodeDesign(const RangeLayout& layout) {
    ItemDesign design;
    design.maxLength = layout.length;
    design.imeMode = ImeMode::Off;
    design.classes = CharacterClass::Num;
    design.minValue = 0;
    design.maxValue = layout.maxValue;
    design.text = QString(layout.length, u'0');
    return design;
}

void BuildRange(Form& form, const RangeLayout& layout, int line) {
    const RangeDefinition& range = DefinitionOf(layout.range);
    constexpr int kCodeWidth = 60;
    const int from = kRangeColumn + kButtonWidth + 4;
    MakeSelectionButton(form, layout.button.toString(), layout.caption.toString(),
                        Place(kRangeColumn, line, kButtonWidth));
    MakeInput(form, range.fromItem, CodeDesign(layout), Place(from, line, kCodeWidth));
    auto* until = new Label(form, form, u"lab_範囲"_s, line, u"～"_s);
    until->setFont(SuiteFont(SuiteFace::PGothic, 10));
    until->SetEdgeless();
    until->setAlignment(Qt::AlignCenter);
    until->setGeometry(Place(from + kCodeWidth, line, 20));
    MakeInput(form, range.toItem, CodeDesign(layout), Place(from + kCodeWidth + 20, line, kCodeWidth));
}

struct TextLayout {
    QStringView item;
    QStringView button;
    QStringView caption;
    int maxLength;
    ImeMode ime;
    CharacterClasses classes;
    int width;
};

const QList<TextLayout>& TextLayouts() {
    // Telephone and postal code accept half-width characters only.
    static const CharacterClasses halfWidth = CharacterClass::Kana | CharacterClass::Lower | CharacterClass::Num |
                                              CharacterClass::NumExt | CharacterClass::Space | CharacterClass::Symbol |
                                              CharacterClass::Upper;
    static const QList<TextLayout> layouts = {
        {u"検索名称", u"btn_名称複数指定", u"名称複数指定", 20, ImeMode::On, CharacterClass::All, 330},
        {u"検索カナ", u"btn_カナ複数指定", u"カナ複数指定", 20, ImeMode::HalfKatakana, CharacterClass::All, 330},
        {u"検索住所", u"btn_住所複数指定", u"住所複数指定", 40, ImeMode::On, CharacterClass::All, 330},
        {u"検索電話", u"btn_電話複数指定", u"電話複数指定", 16, ImeMode::Disabled, halfWidth, 160},
        {u"検索郵便番号", u"btn_郵便番号複数指定", u"郵便番号複数指定", 8, ImeMode::Disabled, halfWidth, 96},
    };
    return layouts;
}

void BuildText(Form& form, const TextLayout& layout, int line) {
    ItemDesign design;
    design.maxLength = layout.maxLength;
    design.imeMode = layout.ime;
    design.classes = layout.classes;
    MakeSelectionButton(form, layout.button.toString(), layout.caption.toString(),
                        Place(kTextColumn, line, kButtonWidth));
    MakeInput(form, layout.item.toString(), design, Place(kTextColumn + kButtonWidth + 4, line, layout.width));
}

void BuildKind(Form& form, const KindDefinition& kind, int line) {
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
    headEnd->SetFaceless();
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
    for (const RangeLayout& layout : kRanges) BuildRange(form, layout, line++);
    line = 0;
    for (const TextLayout& layout : TextLayouts()) BuildText(form, layout, line++);
    line = 0;
    for (const KindDefinition& kind : KindDefinitions()) BuildKind(form, kind, line++);
    BuildCommands(form);
}

const QStringList& SelectionButtons() {
    static const QStringList names = [] {
        QStringList list;
        for (const TextLayout& layout : TextLayouts()) list << layout.button.toString();
        for (const RangeLayout& layout : kRanges) list << layout.button.toString();
        return list;
    }();
    return names;
}
