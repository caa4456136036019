#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "mainform/frm要員名簿照会.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

// How many ranges an item looks back upon when it gets the focus. The position items test one range less than their
// place would suggest, and a missing staff end sends nobody back.
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

}  // namespace

void frm要員名簿照会::WireHead() {
    for (const RangeDefinition& range : RangeDefinitions()) WireRange(range);
    for (const SearchTextDefinition& text : SearchTextDefinitions()) WireSearchText(text);
    for (const KindDefinition& kind : KindDefinitions()) WireKind(kind);
}

bool frm要員名簿照会::RedirectFocus(int reach) {
    const int missing = ValidateHead();
    if (missing == 0 || missing > reach) return false;
    FocusMissingRangeEnd(missing);
    return true;
}

void frm要員名簿照会::WireRange(const RangeDefinition& range) {
    WireRangeItem(range.range, range.fromItem, true);
    WireRangeItem(range.range, range.toItem, false);
}

void frm要員名簿照会::WireRangeItem(Range range, const QString& name, bool start) {
    Control& item = Item(name);
    item.GotFocus = Guarded([this, range] { RedirectFocus(RedirectReach(range)); });
    item.LostFocus = Guarded([&item, range, start] {
        RememberLostFocus(item);
        const QString value = FormatCodeByMask(item.Text(), DefinitionOf(range).mask);
        if (start)
            AcceptRangeStart(range, value);
        else
            AcceptRangeEnd(range, value);
        PaintHeadItems();  // always: the padded code, and a bound moved along, show at once
    });
    item.DblClick = Guarded([this, &item, range] {
        if (!RedirectFocus(RedirectReach(range))) OpenLookupOf(item);
    });
    item.KeyDown = [this, &item](int key) {
        if (key == kKeyControl) Guarded([this, &item] { OpenLookupOf(item); })();
    };
}

void frm要員名簿照会::WireSearchText(const SearchTextDefinition& text) {
    Control& item = Item(text.item);
    item.GotFocus = Guarded([this] { ValidateHead(); });
    item.Change = Guarded([&item] { CheckInputLength(item.Text(), item.MaxLength()); });
    item.LostFocus = Guarded([&item, text] {
        RememberLostFocus(item);
        if (AcceptSearchText(text, item.Text())) RefreshScreen();
    });
}

void frm要員名簿照会::WireKind(const KindDefinition& kind) {
    Control& number = Item(kind.item);
    Control& list = Item(kind.listItem);
    number.GotFocus = Guarded([this] { RedirectFocus(kKindReach); });
    number.LostFocus = Guarded([&number] { RememberLostFocus(number); });
    number.Change = Guarded([&number, &list, kind] {
        list.SetListIndex(number.Value());
        if (AcceptKind(kind, number.Value())) RefreshScreen();
    });
    list.GotFocus = Guarded([this] { ValidateHead(); });
    list.LostFocus = Guarded([&list] { RememberLostFocus(list); });
    list.Click = Guarded([&number, &list] {
        // No entry is shown for a value beyond the list, which keeps that value.
        if (list.ListIndex() >= 0) number.SetValue(list.ListIndex());
    });
}
