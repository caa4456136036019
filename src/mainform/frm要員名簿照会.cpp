#include "mainform/frm要員名簿照会.h"

#include <algorithm>

#include "access/CompanyInformation.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffQuery.h"
#include "platform/Services.h"
#include "screen/PlainControls.h"
#include "screen/modクライアント処理.h"
#include "screen/modマウスWHeel.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidthAllowance = 90;  // twips, for the frame left and right of the notice
constexpr int kUnusedRowLimit = 32760;

/// Height of title bar and frame in twips, which depends on the version of the system.
int FrameMargin() {
    const auto version = platform::Services().system->OsVersion();
    if (!version) return 420;
    if (version->major == 6 && version->minor <= 1) return 420;
    return version->major == 6 && version->minor == 2 ? 440 : 380;
}

template <typename Conditions, typename Has>
bool AnyOf(const Conditions& conditions, Has has) {
    return std::any_of(conditions.begin(), conditions.end(), has);
}

/// The items that a click on a title can focus; the lists of the kinds are not among them.
bool IsHeadItem(const QString& name) {
    return AnyOf(RangeConditions(),
                 [&](const auto& range) { return name == range.fromItem || name == range.toItem; }) ||
           AnyOf(TextConditions(), [&](const auto& text) { return name == text.item; }) ||
           AnyOf(KindConditions(), [&](const auto& kind) { return name == kind.item; });
}

}  // namespace

frm要員名簿照会::frm要員名簿照会(std::function<void()> leave) : Form(u"frm要員名簿照会"_s), leave_(std::move(leave)) {
    BuildTitlePanel(*this);
    BuildHeadPanel(*this);
    BuildListPanel(*this);
    BuildOutputPanel(*this);
    SetTabOrder(*this);
    SetHints(*this);
    ConnectHead();
    ConnectList();
    ConnectMenus();
    ConnectCommands();
    Load = [this] { OnLoad(); };
    Closing = [this] { Leave(); };
}

std::function<void()> frm要員名簿照会::Guarded(std::function<void()> handler) {
    return [handler = std::move(handler)] {
        if (Globals().LinkWaiting || Globals().ScreenPainting) return;
        handler();
    };
}

void frm要員名簿照会::OnLoad() {
    InstallWheelHook(*this, Item(u"scl_行"_s), Globals().RowsPerPage);
    SetupForm();
    ShowProgramTitle();
    RunFirstSearch();
    RefreshScreen();
    ResetListArea();
    SetupScrollBar();
}

void frm要員名簿照会::RunFirstSearch() {
    ResetRowStore();
    RunStaffSearch();
}

void frm要員名簿照会::Leave() {
    RemoveWheelHook();
    leave_();
}

void frm要員名簿照会::SetupForm() {
    const Control& notice = Item(u"お知らせ"_s);
    SetWindowHeight(notice.Top() + notice.Height() + FrameMargin());
    SetWindowWidth(notice.Width() + kWidthAllowance);
    setWindowTitle(Globals().ProgramId + u"（"_s + Globals().Company.名称 + u"）"_s);
    Item(u"scl_行"_s).SetLargeChange(Globals().RowsPerPage);
    Item(u"scl_行"_s).SetEnabled(false);
    Item(u"scl_行"_s).SetValue(0);
    Item(u"tab_詳細"_s).SetValue(0);
    FillConditionLists();
    Globals().FirstHeadItem = Globals().LastHeadItem = Globals().ActiveItem = &Item(ConditionOf(SearchText::Name).item);
}

void frm要員名簿照会::FillConditionLists() {
    for (const KindCondition& kind : KindConditions()) {
        if (!kind.classTable.isEmpty())
            FillClassList(Item(kind.item), Item(kind.listItem), ReadClassNames(kind.classTable));
    }
    const KindCondition& displayOrder = ConditionOf(Kind::DisplayOrder);
    Control& orders = Item(displayOrder.listItem);
    orders.ClearList();
    for (const DisplayOrder& order : DisplayOrders()) orders.AddItem(order.entry);
    Item(displayOrder.item).SetMinValue(0);
    // One more than the list has: 5 can be typed, shows no entry and gives no ORDER BY.
    Item(displayOrder.item).SetMaxValue(static_cast<int>(DisplayOrders().size()));
}

void frm要員名簿照会::ResetListArea() {
    Item(u"scl_行"_s).SetEnabled(false);
    Item(u"scl_行"_s).SetValue(0);
    Item(u"お知らせ"_s).SetCaption(QString());
}

void frm要員名簿照会::SetupScrollBar() {
    auto& bar = static_cast<ScrollItem&>(Item(u"scl_行"_s));
    const ProgramGlobals& globals = Globals();
    if (globals.RowsPerPage == kUnusedRowLimit || globals.LastRow + 1 < globals.RowsPerPage) {
        bar.SetEnabled(false);
        bar.SetValue(0);
        return;
    }
    bar.SetEnabled(true);
    // The maximum is the last row, not the last page: the last row can be scrolled to the top.
    bar.SetPosition(globals.TopRow, qMin(globals.LastRow, kUnusedRowLimit - 1));
}

int frm要員名簿照会::ValidateHead() {
    SetOutputButtons();
    return CheckRangeEnds();
}

void frm要員名簿照会::SetOutputButtons() {
    const bool rows = Globals().LastRow >= 0;
    for (const QString& name :
         {u"btn_印刷"_s, u"btn_プレビュ"_s, u"btn_テキスト出力"_s, u"btn_封筒"_s, u"btn_はがき"_s, u"btn_宛名ラベル"_s})
        Item(name).SetEnabled(rows);
}

void frm要員名簿照会::FocusMissingRangeEnd(int missing) {
    const auto& ranges = RangeConditions();
    if (missing >= 1 && missing <= static_cast<int>(ranges.size()))
        MoveFocus(Item(ranges[static_cast<size_t>(missing - 1)].toItem));
}

// Most callers pass "btn_集計検索", which is no item of the head, so the focus does not move.
void frm要員名簿照会::FocusHeadItemByName(const QString& name) {
    if (IsHeadItem(name)) MoveFocus(Item(name));
}

void frm要員名簿照会::MoveFocus(Control& control) {
    Globals().ListNextItem = &control;
    Globals().ListNextItem = FindNextTabItem(Globals().MainForm, Globals().ListNextItem);
    if (Globals().ListNextItem->Enabled() && Globals().ListNextItem->Visible()) Globals().ListNextItem->SetFocus();
}
