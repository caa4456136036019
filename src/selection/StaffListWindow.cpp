#include "selection/StaffListWindow.h"

#include <algorithm>

#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "screen/PendingInput.h"
#include "screen/PlainControls.h"
#include "selection/ConditionStrings.h"
#include "selection/MasterListWindow.h"
#include "selection/SelectionWindow.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRowLimit = 1000;
constexpr int kMarkAllLimit = 50;  // rows; btn_全て選択 is disabled for longer lists
const QString kCodeMask = u"00000"_s;

/// Extracts the value of a column's term from ListCondition; empty without one.
QString TakeCondition(const QString& column) {
    QString& condition = Globals().ListCondition;
    if (!condition.contains(column, Qt::CaseInsensitive)) return {};
    return ExtractCondition(column, condition, condition);
}

struct ItemSearch {
    QString button, item;
};

const QList<ItemSearch>& ItemSearches() {
    static const QList<ItemSearch> searches = {
        {u"btn_コード検索"_s, u"コード"_s},
        {u"btn_カナ検索"_s, u"カナ"_s},
        {u"btn_名称検索"_s, u"名称"_s},
        {u"btn_部門コード検索"_s, u"部門コード"_s},
        {u"btn_セクションコード検索"_s, u"セクションコード"_s},
    };
    return searches;
}

QList<ListColumn> Columns(int codeWidth) {
    return {{u"コード"_s, codeWidth, u"コード"_s},
            {u"氏名"_s, 2500, u"氏名"_s},
            {u"事業所"_s, 2300, u"事業所名"_s},
            {u"部門"_s, 2300, u"部門名"_s},
            {u"セクション"_s, 2300, u"セクション名"_s}};
}

const QList<StaffListDefinition>& Definitions() {
    const QString list = u"List担当者"_s, title = u"担当者一覧"_s;
    static const QList<StaffListDefinition> definitions = {
        {.window = {.range = Range::Staff,
                    .use = ListUse::Lookup,
                    .caption = u"担当者一覧"_s,
                    .title = title,
                    .list = list,
                    .columns = Columns(750),
                    .unloadWord = u"要員台帳更新"_s},
         .firstCount = 0},
        {.window = {.range = Range::Staff,
                    .use = ListUse::Selection,
                    .caption = u"担当者選択一覧"_s,
                    .title = title,
                    .list = list,
                    .columns = Columns(1050),
                    .unloadWord = {}},
         .firstCount = -1},
    };
    return definitions;
}

}  // namespace

StaffListWindow::StaffListWindow(StaffListDefinition staff) : ListWindow(staff.window), staff_(std::move(staff)) {
    BuildItems();
    ConnectTexts();
    ConnectClasses();
    ConnectButtons();
}

void StaffListWindow::Prepare() {
    FillClassList(Item(u"在籍区分"_s), Item(u"在籍区分名称"_s), ReadClassNames(u"K在籍区分"_s));
    FillClassList(Item(u"社員区分"_s), Item(u"社員区分名称"_s), ReadClassNames(u"K社員区分"_s));
    conditions_.allEnrolments = Item(u"在籍区分"_s).MaxValue();
    conditions_.allEmployees = Item(u"社員区分"_s).MaxValue();
    // Initially enrolled staff of all employee classes.
    conditions_.enrolmentClass = 0;
    conditions_.employeeClass = conditions_.allEmployees;
    ReadConditionIntoItems();
    ShowConditionItems();
}

void StaffListWindow::LoadList() {
    searchKind_ = kCompositeSearch;
    LoadStaffList();
}

void StaffListWindow::ReadConditionIntoItems() {
    // A head item may pass a code that is still being typed.
    conditions_.code = FormatCodeByMask(TakeCondition(u"M担当者.コード"_s), kCodeMask);
    conditions_.departmentCode = TakeCondition(u"M担当者.部門コード"_s);
    conditions_.departmentName =
        conditions_.departmentCode.isEmpty() ? QString() : LookUpDepartmentName(conditions_.departmentCode);
    conditions_.sectionCode = TakeCondition(u"M担当者.セクションコード"_s);
    conditions_.sectionName =
        conditions_.sectionCode.isEmpty() ? QString() : LookUpSectionName(conditions_.sectionCode);
    conditions_.name.clear();
    conditions_.kana.clear();
}

void StaffListWindow::ShowConditionItems() {
    Item(u"コード"_s).SetText(conditions_.code);
    Item(u"カナ"_s).SetText(conditions_.kana);
    Item(u"名称"_s).SetText(conditions_.name);
    Item(u"部門コード"_s).SetText(conditions_.departmentCode);
    Item(u"部門名"_s).SetText(conditions_.departmentName);
    Item(u"セクションコード"_s).SetText(conditions_.sectionCode);
    Item(u"セクション名"_s).SetText(conditions_.sectionName);
    Item(u"在籍区分"_s).SetValue(conditions_.enrolmentClass);
    Item(u"在籍区分名称"_s).SetListIndex(conditions_.enrolmentClass);
    Item(u"社員区分"_s).SetValue(conditions_.employeeClass);
    Item(u"社員区分名称"_s).SetListIndex(conditions_.employeeClass);
}

void StaffListWindow::LoadStaffList() {
    List().ClearRows();
    const QString sql = BuildStaffListQuery(searchKind_, conditions_);
    int count = staff_.firstCount;
    QList<ListRow> rows;
    database::Recordset record;
    if (!sql.isEmpty() && OpenRecordset(record, sql)) {
        for (; count < kRowLimit && !record.AtEOF(); record.MoveNext(), ++count) rows << RowOf(record);
    }
    CloseQuietly(record);
    List().AddRows(std::move(rows));
    Item(u"lab_注意"_s).SetVisible(count >= kRowLimit);
    UpdateSearchButtons();
}

void StaffListWindow::UpdateSearchButtons() {
    for (const ItemSearch& search : ItemSearches())
        Item(search.button).SetEnabled(!TrimBlanks(Item(search.item).Text()).isEmpty());
    Item(u"btn_複合検索"_s).SetEnabled(true);
    if (Control* all = Find(u"btn_全て選択"_s))
        all->SetEnabled(List().RowCount() >= 1 && List().RowCount() <= kMarkAllLimit);
}

void StaffListWindow::Search(int kind) {
    // Esc hides the window without LostFocus of the current item. When shown again, that item contains text that has
    // not been accepted yet.
    for (const ItemSearch& search : ItemSearches()) Item(search.item).LostFocus();
    searchKind_ = kind;
    LoadStaffList();
    DropPendingInput();
    List().SetFocus();
}

void StaffListWindow::ClearConditions() {
    Globals().ListCondition.clear();
    searchKind_ = kCompositeSearch;
    ReadConditionIntoItems();
    ShowConditionItems();
    LoadStaffList();
    DropPendingInput();
    List().SetFocus();
}

ListWindow* MakeStaffListWindow(const QString& name) {
    const auto& all = Definitions();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.window.Name() == name; });
    if (found == all.end()) return nullptr;
    auto* window = new StaffListWindow(*found);
    ConnectList(*window);
    return window;
}
