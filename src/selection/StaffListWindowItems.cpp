// The part of the staff list window that answers its items and buttons.

#include "globals/ProgramGlobals.h"
#include "screen/modクライアント処理.h"
#include "selection/MasterNames.h"
#include "selection/NestedLookup.h"
#include "selection/StaffListWindow.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

using Conditions = StaffListConditions;

void StaffListWindow::WireTexts() {
    WireCode(u"コード"_s, u"00000"_s, &Conditions::code, [] {});
    WireCode(u"部門コード"_s, u"000"_s, &Conditions::departmentCode,
             [this] { conditions_.departmentName = LookUpDepartmentName(conditions_.departmentCode); });
    WireCode(u"セクションコード"_s, u"000"_s, &Conditions::sectionCode,
             [this] { conditions_.sectionName = LookUpSectionName(conditions_.sectionCode); });
    WireCode(u"名称"_s, QString(), &Conditions::name, [] {});
    WireCode(u"カナ"_s, QString(), &Conditions::kana, [] {});
    ReportsItself(Item(u"名称"_s));
    ReportsItself(Item(u"カナ"_s));
    WireMaster(u"部門コード"_s, u"wnd部門一覧"_s, u"btn_部門コード検索"_s);
    WireMaster(u"セクションコード"_s, u"wndセクション一覧"_s, u"btn_セクションコード検索"_s);
    for (const QString& name : {u"部門名"_s, u"セクション名"_s}) {
        Control& item = Item(name);
        item.GotFocus = [this, &item] { SkipFocus(item); };
    }
}

/// An item that accepts its text when it is left; an empty mask takes the text as it stands.
void StaffListWindow::WireCode(const QString& name, const QString& mask, QString Conditions::*field,
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

/// These two items report themselves by the gesture alone, not by the focus. So the first Ctrl or double click after
/// another item reported itself only says which item is meant, and the second one opens.
void StaffListWindow::WireMaster(const QString& name, const QString& window, const QString& button) {
    Control& item = Item(name);
    item.DblClick = [this, &item, window, button] {
        const Control* active = Globals().ActiveItem;
        if (active != nullptr && active->Name() == item.Name()) OpenNestedLookup(*this, window, item, Item(button));
        Globals().ActiveItem = &item;
    };
    item.KeyDown = [&item](int key) {
        if (key == kKeyControl) item.DblClick();
    };
}

/// The caret does not rest on a name that is only shown. The walk goes over the main form, which is disabled and takes
/// no focus then: the caret moves on in this window, and the caller's ListNextItem stays its own.
void StaffListWindow::SkipFocus(Control& item) {
    Control* const callers = Globals().ListNextItem;
    Globals().ListNextItem = &item;
    Globals().ListNextItem = FindNextTabItem(Globals().MainForm, Globals().ListNextItem);
    Globals().ListNextItem->SetFocus();
    if (ActiveControl() == &item) MoveToNextStop(true);
    Globals().ListNextItem = callers;
}

void StaffListWindow::WireClasses() {
    PairClass(Item(u"在籍区分"_s), Item(u"在籍区分名称"_s), [this](int value) { conditions_.enrolmentClass = value; });
    PairClass(Item(u"社員区分"_s), Item(u"社員区分名称"_s), [this](int value) { conditions_.employeeClass = value; });
    for (const QString& name : {u"在籍区分"_s, u"在籍区分名称"_s, u"社員区分"_s, u"社員区分名称"_s})
        ReportsItself(Item(name));
}

void StaffListWindow::WireButtons() {
    const QList<std::pair<QString, int>> searches = {
        {u"btn_コード検索"_s, kCodeSearch},    {u"btn_カナ検索"_s, kKanaSearch},
        {u"btn_名称検索"_s, kNameSearch},      {u"btn_部門コード検索"_s, kDepartmentSearch},
        {u"btn_複合検索"_s, kCompositeSearch}, {u"btn_セクションコード検索"_s, kSectionSearch},
        {u"btn_否定検索"_s, kNegativeSearch},
    };
    for (const auto& [button, kind] : searches) Item(button).Click = [this, search = kind] { Search(search); };
    Item(u"btn_画面クリア"_s).Click = [this] { ClearConditions(); };
}
