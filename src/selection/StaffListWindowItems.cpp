// Part of StaffListWindow.h: the handlers of items and buttons.

#include "globals/ProgramGlobals.h"
#include "screen/modクライアント処理.h"
#include "selection/MasterListWindow.h"
#include "selection/StaffListWindow.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

using Conditions = StaffListConditions;

void StaffListWindow::ConnectTexts() {
    ConnectCode(u"コード"_s, u"00000"_s, &Conditions::code, [] {});
    ConnectCode(u"部門コード"_s, u"000"_s, &Conditions::departmentCode,
                [this] { conditions_.departmentName = LookUpDepartmentName(conditions_.departmentCode); });
    ConnectCode(u"セクションコード"_s, u"000"_s, &Conditions::sectionCode,
                [this] { conditions_.sectionName = LookUpSectionName(conditions_.sectionCode); });
    ConnectCode(u"名称"_s, QString(), &Conditions::name, [] {});
    ConnectCode(u"カナ"_s, QString(), &Conditions::kana, [] {});
    TrackActiveItem(Item(u"名称"_s));
    TrackActiveItem(Item(u"カナ"_s));
    ConnectMaster(u"部門コード"_s, Range::Department, u"btn_部門コード検索"_s);
    ConnectMaster(u"セクションコード"_s, Range::Section, u"btn_セクションコード検索"_s);
    for (const QString& name : {u"部門名"_s, u"セクション名"_s}) {
        Control& item = Item(name);
        item.GotFocus = [this, &item] { SkipFocus(item); };
    }
}

/// Accepts the item's text on LostFocus, formatted by the mask; an empty mask changes nothing.
void StaffListWindow::ConnectCode(const QString& name, const QString& mask, QString Conditions::*field,
                                  const std::function<void()>& accepted) {
    Control& item = Item(name);
    item.Change = [this] { UpdateSearchButtons(); };
    item.LostFocus = [this, &item, mask, field, accepted] {
        const QString text = FormatCodeByMask(item.Text(), mask);
        if (text == conditions_.*field) return;
        conditions_.*field = text;
        accepted();
        ShowConditionItems();
    };
}

/// These two items set ActiveItem on Ctrl or double-click, not on focus. So after another item was active, the first
/// Ctrl or double-click only activates the item and the second one opens the lookup.
void StaffListWindow::ConnectMaster(const QString& name, Range range, const QString& button) {
    Control& item = Item(name);
    item.DblClick = [this, &item, range, button] {
        const Control* active = Globals().ActiveItem;
        if (active != nullptr && active->Name() == item.Name()) OpenNestedLookup(*this, range, item, Item(button));
        Globals().ActiveItem = &item;
    };
    item.KeyDown = [&item](int key) {
        if (key == kKeyControl) item.DblClick();
    };
}

/// Moves the focus off a read-only name. FindNextTabItem searches the main form, which is disabled and takes no focus;
/// so the focus moves to the next stop of this window. The caller's ListNextItem is restored.
void StaffListWindow::SkipFocus(Control& item) {
    Control* const callers = Globals().ListNextItem;
    Globals().ListNextItem = &item;
    Globals().ListNextItem = FindNextTabItem(Globals().MainForm, Globals().ListNextItem);
    Globals().ListNextItem->SetFocus();
    if (ActiveControl() == &item) MoveToNextStop(true);
    Globals().ListNextItem = callers;
}

void StaffListWindow::ConnectClasses() {
    PairClass(Item(u"在籍区分"_s), Item(u"在籍区分名称"_s), [this](int value) { conditions_.enrolmentClass = value; });
    PairClass(Item(u"社員区分"_s), Item(u"社員区分名称"_s), [this](int value) { conditions_.employeeClass = value; });
    for (const QString& name : {u"在籍区分"_s, u"在籍区分名称"_s, u"社員区分"_s, u"社員区分名称"_s})
        TrackActiveItem(Item(name));
}

void StaffListWindow::ConnectButtons() {
    const QList<std::pair<QString, int>> searches = {
        {u"btn_コード検索"_s, kCodeSearch},    {u"btn_カナ検索"_s, kKanaSearch},
        {u"btn_名称検索"_s, kNameSearch},      {u"btn_部門コード検索"_s, kDepartmentSearch},
        {u"btn_複合検索"_s, kCompositeSearch}, {u"btn_セクションコード検索"_s, kSectionSearch},
        {u"btn_否定検索"_s, kNegativeSearch},
    };
    for (const auto& [button, kind] : searches) Item(button).Click = [this, search = kind] { Search(search); };
    Item(u"btn_画面クリア"_s).Click = [this] { ClearConditions(); };
}
