#include "mainform/frm要員名簿照会.h"

#include "access/CompanyInformation.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/RowStoreProcedures.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffQuery.h"
#include "mainform/MainFormPanels.h"
#include "platform/Services.h"
#include "screen/ComboItem.h"
#include "screen/ScrollItem.h"
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

}  // namespace

frm要員名簿照会::frm要員名簿照会(std::function<void()> leave) : Form(u"frm要員名簿照会"_s), leave_(std::move(leave)) {
    BuildTitlePanel(*this);
    BuildHeadPanel(*this);
    BuildListPanel(*this);
    BuildOutputPanel(*this);
    SetTabOrder(*this);
    ConnectHead();
    ConnectList();
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
    Globals().FirstHeadItem = Globals().LastHeadItem = Globals().ActiveItem = &Item(u"検索名称"_s);
}

void frm要員名簿照会::FillConditionLists() {
    const auto& kinds = KindDefinitions();
    FillClassList(Item(kinds[0].item), Item(kinds[0].listItem), ReadClassNames(u"K在籍区分"_s));
    FillClassList(Item(kinds[1].item), Item(kinds[1].listItem), ReadClassNames(u"K社員区分"_s));
    Control& orders = Item(kinds[2].listItem);
    orders.ClearList();
    for (const QString& order : {u"担当者コード順"_s, u"所属コード順"_s, u"名称順"_s, u"カナ順"_s, u"郵便番号順"_s})
        orders.AddItem(order);
    Item(kinds[2].item).SetMinValue(0);
    // One more than the list has: 5 can be typed, shows no entry and gives no ORDER BY.
    Item(kinds[2].item).SetMaxValue(5);
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
    bar.TakePlace(globals.TopRow, qMin(globals.LastRow, kUnusedRowLimit - 1));
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
    if (missing >= 1 && missing <= 4) MoveFocus(Item(RangeDefinitions()[static_cast<size_t>(missing - 1)].toItem));
}

void frm要員名簿照会::FocusHeadItemByName(const QString& name) {
    static const QStringList items = {
        u"開始部門コード"_s,
        u"終了部門コード"_s,
        u"開始セクションコード"_s,
        u"終了セクションコード"_s,
        u"開始役職コード"_s,
        u"終了役職コード"_s,
        u"開始担当者コード"_s,
        u"終了担当者コード"_s,
        u"検索名称"_s,
        u"検索カナ"_s,
        u"在籍区分"_s,
        u"社員区分"_s,
        u"検索電話"_s,
        u"検索郵便番号"_s,
        u"検索住所"_s,
        u"表示順区分"_s,
    };
    // Most callers pass "btn_集計検索", which is not in the list, so the focus does not move.
    if (items.contains(name)) MoveFocus(Item(name));
}

void frm要員名簿照会::MoveFocus(Control& control) {
    Globals().ListNextItem = &control;
    Globals().ListNextItem = FindNextTabItem(Globals().MainForm, Globals().ListNextItem);
    if (Globals().ListNextItem->Enabled() && Globals().ListNextItem->Visible()) Globals().ListNextItem->SetFocus();
}
