#include "inquiry/ScreenState.h"

#include <QColor>

#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/DetailList.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

namespace {

const QColor kSelectionGiven(0, 192, 0);
const QColor kNoSelection(0, 0, 128);

/// A head item that shows a text of the conditions.
struct TextItem {
    QString item;
    QString InquiryConditions::*field;
};

/// A selection button: its flag determines its colour and disables its items.
struct SelectionItem {
    bool ConditionFlags::*flag;
    QString button;
    QStringList items;
};

const QList<TextItem>& RangeTexts() {
    static const QList<TextItem> items = [] {
        QList<TextItem> list;
        for (const RangeDefinition& range : RangeDefinitions())
            list << TextItem{range.fromItem, range.from} << TextItem{range.toItem, range.to};
        return list;
    }();
    return items;
}

const QList<SelectionItem>& SelectionItems() {
    static const QList<SelectionItem> items = {
        {&ConditionFlags::NameListGiven, u"btn_名称複数指定"_s, {u"検索名称"_s}},
        {&ConditionFlags::KanaListGiven, u"btn_カナ複数指定"_s, {u"検索カナ"_s}},
        {&ConditionFlags::AddressListGiven, u"btn_住所複数指定"_s, {u"検索住所"_s}},
        {&ConditionFlags::PhoneListGiven, u"btn_電話複数指定"_s, {u"検索電話"_s}},
        {&ConditionFlags::ZipListGiven, u"btn_郵便番号複数指定"_s, {u"検索郵便番号"_s}},
        {&ConditionFlags::DepartmentPicked, u"btn_部門個別選択"_s, {u"開始部門コード"_s, u"終了部門コード"_s}},
        {&ConditionFlags::SectionPicked,
         u"btn_セクション個別選択"_s,
         {u"開始セクションコード"_s, u"終了セクションコード"_s}},
        {&ConditionFlags::PositionPicked, u"btn_役職個別選択"_s, {u"開始役職コード"_s, u"終了役職コード"_s}},
        {&ConditionFlags::StaffPicked, u"btn_担当者個別選択"_s, {u"開始担当者コード"_s, u"終了担当者コード"_s}},
    };
    return items;
}

void PaintTexts(const QList<TextItem>& items) {
    for (const TextItem& text : items) Globals().MainForm->Item(text.item).SetText(Globals().Conditions.*(text.field));
}

void PaintKind(const KindDefinition& kind) {
    const int value = Globals().Conditions.*(kind.field);
    Globals().MainForm->Item(kind.item).SetValue(value);
    Globals().MainForm->Item(kind.listItem).SetListIndex(value);
}

void PaintSelection(const SelectionItem& selection) {
    const bool given = Globals().Flags.*(selection.flag);
    Globals().MainForm->Item(selection.button).SetForeColor(given ? kSelectionGiven : kNoSelection);
    for (const QString& item : selection.items) Globals().MainForm->Item(item).SetEnabled(!given);
}

}  // namespace

void RefreshScreen() {
    PaintHeadItems();
    PaintDetailRows();
    EndPainting();
}

void PaintHeadItems() {
    using C = InquiryConditions;
    const auto& kinds = KindDefinitions();
    Globals().ScreenPainting = true;
    PaintTexts(RangeTexts());
    PaintTexts({{u"検索名称"_s, &C::SearchName}, {u"検索カナ"_s, &C::SearchKana}});
    PaintKind(kinds[0]);
    PaintKind(kinds[1]);
    PaintTexts(
        {{u"検索電話"_s, &C::SearchPhone}, {u"検索郵便番号"_s, &C::SearchZip}, {u"検索住所"_s, &C::SearchAddress}});
    PaintKind(kinds[2]);
    for (const SelectionItem& selection : SelectionItems()) PaintSelection(selection);
    Globals().ScreenPainting = false;
}

void PaintDetailRows() {
    for (int position = 0; position < Globals().RowsPerPage; ++position)
        PaintDetailRow(Globals().TopRow + position, position);
}

void EndPainting() { Globals().ScreenPainting = false; }
