#include "inquiry/ScreenState.h"

#include <QColor>
#include <array>

#include "globals/ProgramGlobals.h"
#include "inquiry/SearchConditions.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

namespace {

const QColor kSelectionGiven(0, 192, 0);
const QColor kNoSelection(0, 0, 128);

// The classes are painted between the texts.
constexpr auto kTextsBeforeClasses = std::to_array({SearchText::Name, SearchText::Kana});
constexpr auto kTextsAfterClasses = std::to_array({SearchText::Phone, SearchText::Zip, SearchText::Address});
static_assert(kTextsBeforeClasses.size() + kTextsAfterClasses.size() == kSearchTextCount);

void PaintItem(const QString& item, const QString& text) { Globals().MainForm->Item(item).SetText(text); }

void PaintRange(const RangeCondition& range) {
    PaintItem(range.fromItem, Globals().Conditions.*range.from);
    PaintItem(range.toItem, Globals().Conditions.*range.to);
}

void PaintText(SearchText id) {
    const TextCondition& text = ConditionOf(id);
    PaintItem(text.item, Globals().Conditions.*text.field);
}

void PaintKind(Kind id) {
    const KindCondition& kind = ConditionOf(id);
    const int value = Globals().Conditions.*kind.field;
    Globals().MainForm->Item(kind.item).SetValue(value);
    Globals().MainForm->Item(kind.listItem).SetListIndex(value);
}

/// The flag determines the button's colour and disables the items.
void PaintSelection(const ConditionSelection& selection, const QStringList& items) {
    const bool given = Globals().Flags.*selection.flag;
    Globals().MainForm->Item(selection.button).SetForeColor(given ? kSelectionGiven : kNoSelection);
    for (const QString& item : items) Globals().MainForm->Item(item).SetEnabled(!given);
}

}  // namespace

void RefreshScreen() {
    PaintHeadItems();
    PaintDetailRows();
    EndPainting();
}

void PaintHeadItems() {
    Globals().ScreenPainting = true;
    for (const RangeCondition& range : RangeConditions()) PaintRange(range);
    for (const SearchText text : kTextsBeforeClasses) PaintText(text);
    PaintKind(Kind::Enrolment);
    PaintKind(Kind::StaffClass);
    for (const SearchText text : kTextsAfterClasses) PaintText(text);
    PaintKind(Kind::DisplayOrder);
    for (const TextCondition& text : TextConditions()) PaintSelection(text.selection, {text.item});
    for (const RangeCondition& range : RangeConditions())
        PaintSelection(range.selection, {range.fromItem, range.toItem});
    Globals().ScreenPainting = false;
}

void PaintDetailRows() {
    for (int position = 0; position < Globals().RowsPerPage; ++position)
        PaintDetailRow(Globals().TopRow + position, position);
}

void EndPainting() { Globals().ScreenPainting = false; }
