// Part of frm要員名簿照会.h: the handlers of the list.

#include "globals/ProgramGlobals.h"
#include "inquiry/ListStatus.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffQuery.h"
#include "mainform/frm要員名簿照会.h"
#include "platform/Services.h"
#include "screen/PendingInput.h"

using namespace Qt::StringLiterals;

namespace {

// Most callers pass this name. It is not in FocusHeadItemByName, so the focus does not move.
const QString kNoItem = u"btn_集計検索"_s;
const QColor kRowInWork(255, 128, 128);

// The panels coloured while a row is being edited in the other program; bak_dtld, on the third page, is not.
const QStringList kPaintedPanels = {u"bak_dtl_行No"_s, u"bak_dtla"_s, u"bak_dtlb"_s, u"bak_dtlc"_s};

const QStringList kTitles = {u"bak_dtl_head_行No"_s, u"baK_dtl_heada"_s, u"baK_dtl_headb"_s, u"itm_ttl_行No"_s,
                             u"itm_ttl_担当者"_s,    u"itm_ttl_所属"_s,  u"itm_ttl_役職"_s,  u"itm_ttl_日付"_s,
                             u"itm_ttl_住所"_s,      u"itm_ttl_連絡先"_s};

const QStringList kRowPanelsAndLabels = {u"bak_dtlb"_s,     u"bak_dtlc"_s,           u"bak_dtld"_s,
                                         u"itm_ttl_性別"_s, u"itm_ttl_在籍区分名"_s, u"itm_ttl_社員区分名"_s,
                                         u"itm_ttl_電話"_s, u"itm_ttl_携帯電話"_s,   u"itm_ttl_EMAIL"_s};

bool RowExists(int position) { return Globals().TopRow + position <= Globals().LastRow; }

}  // namespace

void frm要員名簿照会::ConnectList() {
    for (const QString& name : kTitles) Item(name).Click = Guarded([this] { ItemClicked(1, 0, kNoItem); });
    for (const KindCondition& kind : KindConditions())
        Item(u"itm_ttl_"_s + kind.item).Click = Guarded([this, &kind] { ItemClicked(1, 0, kind.item); });
    Item(u"tab_詳細"_s).Click = Guarded([this] { ItemClicked(1, 0, kNoItem); });
    // Scrolling is always possible, so no guard.
    Item(u"scl_行"_s).Change = [this] { ScrollList(); };
    for (int position = 0; position < kRowPositions; ++position) ConnectRow(position);
}

void frm要員名簿照会::ConnectRow(int position) {
    const auto rowClick = Guarded([this, position] { ItemClicked(2, position, kNoItem); });
    const auto panelClick = Guarded([this, position] { RowPanelClicked(position); });
    Item(u"bak_dtl_行No"_s, position).Click = panelClick;
    Item(u"bak_dtla"_s, position).Click = panelClick;
    for (const QString& name : kRowPanelsAndLabels) Item(name, position).Click = rowClick;
    Item(u"行No"_s, position).Click = rowClick;
    for (const DetailItem& detail : DetailItems()) Item(detail.item, position).Click = rowClick;
    Item(u"暗証番号"_s, position).Click = nullptr;  // a click on the PIN does nothing

    Control& box = Item(u"chb_出力対象"_s, position);
    box.Click = Guarded([&box, position] {
        const int row = Globals().TopRow + position;
        Globals().Rows.出力対象[static_cast<size_t>(row)] = static_cast<qint16>(box.Value());
        if (RowExists(position)) ShowRowCounts();
    });
}

void frm要員名簿照会::ScrollList() {
    Globals().TopRow = Item(u"scl_行"_s).Value();
    RefreshScreen();
    MoveFocus(*Globals().LastHeadItem);  // the list takes no focus
}

bool frm要員名簿照会::ItemClicked(int kind, int position, const QString& name) {
    const int missing = CheckRangeEnds();
    if (missing != 0) {
        FocusMissingRangeEnd(missing);
    } else {
        if (kind == 2 && RowExists(position)) LaunchRow(position);
        FocusHeadItemByName(name);
    }
    SetOutputButtons();
    return missing != 0;
}

bool frm要員名簿照会::RowPanelClicked(int position) {
    const int missing = CheckRangeEnds();
    if (missing != 0)
        FocusMissingRangeEnd(missing);
    else if (RowExists(position))
        LaunchRow(position);
    SetOutputButtons();
    return missing != 0;
}

void frm要員名簿照会::LaunchRow(int position) {
    const QColor kept = Item(u"bak_dtla"_s, position).BackColor();
    const auto paint = [this, position](const QColor& color) {
        for (const QString& panel : kPaintedPanels) Item(panel, position).SetBackColor(color);
    };
    paint(kRowInWork);
    platform::ProcessEvents();
    LaunchStaffRegistration(position);
    paint(kept);
    DropPendingInput();
}
