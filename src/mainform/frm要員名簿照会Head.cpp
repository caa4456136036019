// The part of frm要員名簿照会 with the handlers of the head.

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "mainform/frm要員名簿照会.h"
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

}  // namespace

void frm要員名簿照会::ConnectHead() {
    for (const RangeDefinition& range : RangeDefinitions()) ConnectRange(range);
    for (const SearchTextDefinition& text : SearchTextDefinitions()) ConnectSearchText(text);
    for (const KindDefinition& kind : KindDefinitions()) ConnectKind(kind);
}

bool frm要員名簿照会::RedirectFocus(int reach) {
    const int missing = ValidateHead();
    if (missing == 0 || missing > reach) return false;
    FocusMissingRangeEnd(missing);
    return true;
}

void frm要員名簿照会::ConnectRange(const RangeDefinition& range) {
    ConnectRangeItem(range.range, range.fromItem, true);
    ConnectRangeItem(range.range, range.toItem, false);
}

void frm要員名簿照会::ConnectRangeItem(Range range, const QString& name, bool start) {
    Control& item = Item(name);
    item.GotFocus = Guarded([this, range] { RedirectFocus(RedirectReach(range)); });
    item.LostFocus = Guarded([&item, range, start] {
        RememberLostFocus(item);
        const QString value = FormatCodeByMask(item.Text(), DefinitionOf(range).mask);
        if (start)
            AcceptRangeStart(range, value);
        else
            AcceptRangeEnd(range, value);
        PaintHeadItems();  // unconditionally: shows the padded code and the other bound if it was moved
    });
    item.DblClick = Guarded([this, &item, range] {
        if (!RedirectFocus(RedirectReach(range))) OpenLookupOf(item);
    });
    item.KeyDown = [this, &item](int key) {
        if (key == kKeyControl) Guarded([this, &item] { OpenLookupOf(item); })();
    };
}

void frm要員名簿照会::ConnectSearchText(const SearchTextDefinition& text) {
    Control& item = Item(text.item);
    item.GotFocus = Guarded([this] { ValidateHead(); });
    item.Change = Guarded([&item] { CheckInputLength(item.Text(), item.MaxLength()); });
    item.LostFocus = Guarded([&item, text] {
        RememberLostFocus(item);
        if (AcceptSearchText(text, item.Text())) RefreshScreen();
    });
}

void frm要員名簿照会::ConnectKind(const KindDefinition& kind) {
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
        // A value beyond the list shows no entry and must not be overwritten.
        if (list.ListIndex() >= 0) number.SetValue(list.ListIndex());
    });
}
