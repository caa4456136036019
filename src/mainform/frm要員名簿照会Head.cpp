// Part of frm要員名簿照会.h: the handlers of the head.

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "mainform/frm要員名簿照会.h"
#include "selection/OpenListWindow.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

// Number of preceding ranges that an item validates when it gets the focus. Position items check one range fewer than
// their order suggests, and a missing staff end never redirects the focus.
int RedirectReach(Range range) {
    switch (range) {
        case Range::Department:
            return 0;
        case Range::Section:
        case Range::Position:
            return 1;
        case Range::Staff:
            return 2;
    }
    return 0;
}
constexpr int kKindReach = 3;

void RememberLostFocus(Control& item) { Globals().LastHeadItem = &item; }

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

void frm要員名簿照会::ConnectHead() {
    for (const RangeCondition& range : RangeConditions()) {
        ConnectRangeItem(range, Bound::Start);
        ConnectRangeItem(range, Bound::End);
    }
    for (const TextCondition& text : TextConditions()) ConnectText(text);
    for (const KindCondition& kind : KindConditions()) ConnectKind(kind);
}

bool frm要員名簿照会::RedirectFocus(int reach) {
    const int missing = ValidateHead();
    if (missing == 0 || missing > reach) return false;
    FocusMissingRangeEnd(missing);
    return true;
}

void frm要員名簿照会::ConnectRangeItem(const RangeCondition& range, Bound bound) {
    Control& item = Item(bound == Bound::Start ? range.fromItem : range.toItem);
    const int reach = RedirectReach(range.id);
    const auto openLookup = [this, &range, bound] { OpenLookup(range, bound); };
    item.GotFocus = Guarded([this, reach] { RedirectFocus(reach); });
    item.LostFocus = Guarded([&item, &range, bound] {
        RememberLostFocus(item);
        const QString value = FormatCodeByMask(item.Text(), range.mask);
        if (bound == Bound::Start)
            AcceptRangeStart(range.id, value);
        else
            AcceptRangeEnd(range.id, value);
        PaintHeadItems();  // unconditionally: shows the padded code and the other bound if it was moved
    });
    item.DblClick = Guarded([this, reach, openLookup] {
        if (!RedirectFocus(reach)) openLookup();
    });
    item.KeyDown = [openLookup](int key) {
        if (key == kKeyControl) Guarded(openLookup)();
    };
}

void frm要員名簿照会::ConnectText(const TextCondition& text) {
    Control& item = Item(text.item);
    item.GotFocus = Guarded([this] { ValidateHead(); });
    item.Change = Guarded([&item] { CheckInputLength(item.Text(), item.MaxLength()); });
    item.LostFocus = Guarded([&item, &text] {
        RememberLostFocus(item);
        const QString typed = item.Text();
        if (!AcceptSearchText(text, typed)) return;
        RefreshScreen();
        // The paint does not emit Change, so the notice would count characters that have been cut.
        if (item.Text() != typed) CheckInputLength(item.Text(), item.MaxLength());
    });
}

void frm要員名簿照会::ConnectKind(const KindCondition& kind) {
    Control& number = Item(kind.item);
    Control& list = Item(kind.listItem);
    number.GotFocus = Guarded([this] { RedirectFocus(kKindReach); });
    number.LostFocus = Guarded([&number] { RememberLostFocus(number); });
    number.Change = Guarded([&number, &list, &kind] {
        list.SetListIndex(number.Value());
        if (AcceptKind(kind, number.Value())) RefreshScreen();
    });
    list.GotFocus = Guarded([this] { ValidateHead(); });
    list.LostFocus = Guarded([&list] { RememberLostFocus(list); });
    list.Click = Guarded([&number, &list] {
        // A value beyond the list shows no entry and must not be overwritten.
        if (list.ListIndex() >= 0) number.SetValue(list.ListIndex());
    });
}

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
