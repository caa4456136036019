#include "selection/MasterListWindow.h"

#include <algorithm>

#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "platform/RuntimeError.h"
#include "screen/ComboItem.h"
#include "selection/ConditionStrings.h"
#include "selection/ListWindowLayout.h"
#include "selection/LookupController.h"
#include "selection/MultiSelectController.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

const QString kStatus = u"稼動状況区分"_s;
const QString kStatusList = u"稼動状況区分名称"_s;
constexpr int kInOperation = 1;

QList<ListColumn> Columns(int codeWidth, int nameWidth) {
    return {{u"コード"_s, codeWidth, u"コード"_s}, {u"名称"_s, nameWidth, u"名称"_s}};
}

const QList<MasterListDefinition>& Definitions() {
    static const QList<MasterListDefinition> definitions = {
        {{u"wnd部門一覧"_s, u"部門一覧"_s, u"部門一覧"_s, u"List部門"_s, Columns(750, 2500), u"組織台帳更新"_s},
         u"M部門"_s,
         true},
        {{u"wndセクション一覧"_s, u"セクション一覧"_s, u"セクション一覧"_s, u"Listセクション"_s, Columns(750, 2500),
          u"班台帳更新"_s},
         u"Mセクション"_s,
         true},
        {{u"wnd役職一覧"_s, u"役職一覧"_s, u"役職一覧"_s, u"List役職"_s, Columns(750, 2500), u"職位台帳更新"_s},
         u"M役職"_s,
         false},
        {{u"wnd部門選択一覧"_s, u"部門選択一覧"_s, u"部門一覧"_s, u"List部門"_s, Columns(1000, 2300), {}},
         u"M部門"_s,
         true},
        {{u"wndセクション選択一覧"_s,
          u"セクション選択一覧"_s,
          u"セクション一覧"_s,
          u"Listセクション"_s,
          Columns(1000, 2300),
          {}},
         u"Mセクション"_s,
         true},
        {{u"wnd役職選択一覧"_s, u"役職選択一覧"_s, u"役職一覧"_s, u"List役職"_s, Columns(750, 2500), {}},
         u"M役職"_s,
         false},
    };
    return definitions;
}

QString NameOf(const QString& table, const QString& code) {
    database::Recordset record;
    QString name;
    if (OpenRecordset(record, u"SELECT 名称 FROM "_s + table + u" WHERE コード = '"_s + code + u'\''))
        name = record[u"名称"].TextOr(QString());
    CloseQuietly(record);
    return name;
}

}  // namespace

MasterListWindow::MasterListWindow(MasterListDefinition master)
    : ListWindow(master.window), master_(std::move(master)) {
    BuildMasterItems(*this, Definition(), master_.hasStatus);
    if (master_.hasStatus) ConnectStatus();
}

void MasterListWindow::ConnectStatus() {
    Control& number = Item(kStatus);
    Control& list = Item(kStatusList);
    PairClass(number, list, [this](int value) { status_ = value; });
    for (Control* item : {&number, &list}) TrackActiveItem(*item);
    // Despite its caption it clears nothing: it applies a changed status.
    Item(u"btn_画面クリア"_s).Click = [this] {
        LoadMasterList();
        List().SetFocus();
    };
}

void MasterListWindow::Prepare() {
    if (!master_.hasStatus) return;
    FillClassList(Item(kStatus), Item(kStatusList), ReadClassNames(u"K"_s + kStatus));
    status_ = kInOperation;
    QString& condition = Globals().ListCondition;
    const QString column = master_.table + u'.' + kStatus;
    if (condition.contains(column, Qt::CaseInsensitive))
        status_ = NumericValue(ExtractCondition(column, condition, condition));
    Item(kStatus).SetValue(status_);
    Item(kStatusList).SetListIndex(status_);
}

QString MasterListWindow::ListQuery() const {
    QString sql = u"SELECT コード,名称 FROM "_s + master_.table;
    const QString& condition = Globals().ListCondition;
    if (!master_.hasStatus) {
        if (!TrimBlanks(condition).isEmpty()) sql += u" WHERE "_s + condition;
    } else if (status_ != Item(kStatus).MaxValue()) {
        // The list index is the code of the class.
        sql += u" WHERE "_s + master_.table + u'.' + kStatus + u" = '"_s + FormatByMask(status_, u"0"_s) + u'\'';
    }
    return sql + u" ORDER BY "_s + master_.table + u".コード"_s;
}

void MasterListWindow::LoadMasterList() {
    List().ClearRows();
    QList<ListRow> rows;
    database::Recordset record;
    if (OpenRecordset(record, ListQuery())) {
        for (; !record.AtEOF(); record.MoveNext()) rows << RowOf(record);
    }
    CloseQuietly(record);
    List().AddRows(std::move(rows));
}

ListWindow* MakeMasterListWindow(const QString& name) {
    const auto& all = Definitions();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.window.name == name; });
    if (found == all.end()) return nullptr;
    auto* window = new MasterListWindow(*found);
    if (!ConnectMultiSelect(*window)) ConnectLookup(*window);
    return window;
}

Form& LoadedOrNew(const QString& name, ListWindow* (*make)(const QString& name)) {
    if (Form* loaded = LoadedForm(name)) return *loaded;
    ListWindow* window = make(name);
    if (window == nullptr) throw platform::RuntimeError(platform::kItemNotFound, name);
    return *window;
}

void OpenNestedLookup(Form& owner, const QString& window, Control& item, Control& next) {
    ProgramGlobals& globals = Globals();
    Control* const resultItem = globals.ListResultItem;
    Control* const nextItem = globals.ListNextItem;
    globals.NestedListOwner = &owner;
    globals.NestedListFlag = 1;
    owner.SetEnabled(false);
    globals.ListCondition.clear();
    globals.ListResultItem = &item;
    globals.ListNextItem = &next;
    LoadedOrNew(window, MakeMasterListWindow).ShowModal();
    globals.NestedListFlag = 0;
    globals.NestedListOwner = nullptr;
    globals.ListResultItem = resultItem;
    globals.ListNextItem = nextItem;
}

QString LookUpDepartmentName(const QString& code) { return NameOf(u"M部門"_s, code); }

QString LookUpSectionName(const QString& code) { return NameOf(u"Mセクション"_s, code); }
