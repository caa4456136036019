// The part of frm要員名簿照会 with the lookups of the range items.

#include "globals/ProgramGlobals.h"
#include "mainform/frm要員名簿照会.h"
#include "selection/OpenListWindow.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

/// The item after the range, which gets the focus when the end has been chosen.
const QString& ItemAfter(Range range) {
    const size_t next = static_cast<size_t>(range) + 1;
    return next < kRangeCount ? RangeConditions()[next].fromItem : ConditionOf(Kind::DisplayOrder).item;
}

QString StartCondition(const RangeCondition& range, const QString& start) {
    // Only a position is padded; the other lists get the code as it is typed.
    const QString code = range.id == Range::Position ? FormatCodeByMask(start, range.mask) : start;
    return range.master + u".コード >= '"_s + code + u'\'';
}

}  // namespace

void frm要員名簿照会::OpenLookup(const RangeCondition& range, Bound bound) {
    SetEnabled(false);
    const QString start = Item(range.fromItem).Text();
    // For an end, an empty start is a condition, too; not so for staff.
    const bool always = bound == Bound::End && range.id != Range::Staff;
    const bool bounded = always || !TrimBlanks(start).isEmpty();
    Globals().ListCondition = bounded ? StartCondition(range, start) : QString();
    Globals().ListResultItem = &Item(bound == Bound::Start ? range.fromItem : range.toItem);
    Globals().ListNextItem = &Item(bound == Bound::Start ? range.toItem : ItemAfter(range.id));
    ShowListWindow(range.lookup);
}
