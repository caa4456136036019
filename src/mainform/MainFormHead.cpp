#include <QRect>

#include "inquiry/ConditionProcedures.h"
#include "mainform/MainFormPanels.h"
#include "screen/Button.h"
#include "screen/ComboItem.h"
#include "screen/fonts/Fonts.h"
#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Label.h"
#include "screen/NumItem.h"
#include "screen/Panel.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLine = 28;    // from one line of the head to the next
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

// Ranges: the button that opens the selection window stands in front of both bounds as their title.
struct RangeLook {
    Range range;
    QStringView button;
    QStringView caption;
    int length;
    int maxValue;
};
constexpr RangeLook kRanges[] = {
    {Range::Department, u"btn_部門個別選択", u"部門コード範囲", 3, 999},
    // This caption really differs from the item's name, unlike its neighbours.
    {Range::Section, u"btn_セクション個別選択", u"所属コード範囲", 3, 999},
    {Range::Position, u"btn_役職個別選択", u"役職コード範囲", 2, 99},
    {Range::Staff, u"btn_担当者個別選択", u"担当者コード範囲", 5, 999999},
};

ItemDesign CodeDesign(const RangeLook& look) {
    ItemDesign design;
    design.maxLength = look.length;
    design.imeMode = ImeMode::Off;
    design.classes = CharacterClass::Num;
    design.minValue = 0;
    design.maxValue = look.maxValue;
    design.text = QString(look.length, u'0');
    return design;
}

void BuildRange(Form& form, const RangeLook& look, int line) {
    const RangeDefinition& range = DefinitionOf(look.range);
    constexpr int kCodeWidth = 60;
    const int from = kRangeColumn + kButtonWidth + 4;
    MakeSelectionButton(form, look.button.toString(), look.caption.toString(), Place(kRangeColumn, line, kButtonWidth));
    MakeInput(form, range.fromItem, CodeDesign(look), Place(from, line, kCodeWidth));
    auto* until = new Label(form, form, u"lab_範囲"_s, line, u"～"_s);
    until->setFont(SuiteFont(SuiteFace::PGothic, 10));
    until->SetEdgeless();
    until->setAlignment(Qt::AlignCenter);
    until->setGeometry(Place(from + kCodeWidth, line, 20));
    MakeInput(form, range.toItem, CodeDesign(look), Place(from + kCodeWidth + 20, line, kCodeWidth));
}

struct TextLook {
    QStringView item;
    QStringView button;
    QStringView caption;
    int maxLength;
    ImeMode ime;
    CharacterClasses classes;
    int width;
};

const QList<TextLook>& TextLooks() {
    // Telephone and postal code take half-width signs only.
    static const CharacterClasses halfWidth = CharacterClass::Kana | CharacterClass::Lower | CharacterClass::Num |
                                              CharacterClass::NumExt | CharacterClass::Space | CharacterClass::Symbol |
                                              CharacterClass::Upper;
    static const QList<TextLook> looks = {
        {u"検索名称", u"btn_名称複数指定", u"名称複数指定", 20, ImeMode::On, CharacterClass::All, 330},
        {u"検索カナ", u"btn_カナ複数指定", u"カナ複数指定", 20, ImeMode::HalfKatakana, CharacterClass::All, 330},
        {u"検索住所", u"btn_住所複数指定", u"住所複数指定", 40, ImeMode::On, CharacterClass::All, 330},
        {u"検索電話", u"btn_電話複数指定", u"電話複数指定", 16, ImeMode::Disabled, halfWidth, 160},
        {u"検索郵便番号", u"btn_郵便番号複数指定", u"郵便番号複数指定", 8, ImeMode::Disabled, halfWidth, 96},
    };
    return looks;
}

void BuildText(Form& form, const TextLook& look, int line) {
    ItemDesign design;
    design.maxLength = look.maxLength;
    design.imeMode = look.ime;
    design.classes = look.classes;
    MakeSelectionButton(form, look.button.toString(), look.caption.toString(), Place(kTextColumn, line, kButtonWidth));
    MakeInput(form, look.item.toString(), design, Place(kTextColumn + kButtonWidth + 4, line, look.width));
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
    // The border between head and list: it takes the focus at the end of the head and has no face of its own.
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
    for (const RangeLook& look : kRanges) BuildRange(form, look, line++);
    line = 0;
    for (const TextLook& look : TextLooks()) BuildText(form, look, line++);
    line = 0;
    for (const KindDefinition& kind : KindDefinitions()) BuildKind(form, kind, line++);
    BuildCommands(form);
}

const QStringList& SelectionButtons() {
    static const QStringList names = [] {
        QStringList list;
        for (const TextLook& look : TextLooks()) list << look.button.toString();
        for (const RangeLook& look : kRanges) list << look.button.toString();
        return list;
    }();
    return names;
}
