#include "selection/MasterListWindow.h"

#include <algorithm>

#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "platform/RuntimeError.h"
#include "screen/PendingInput.h"
#include "screen/PlainControls.h"
#include "selection/ConditionStrings.h"
#include "selection/ListWindowLayout.h"
#include "selection/SelectionWindow.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

const QString kStatus = u"稼動状況区分"_s;
const QString kStatusList = u"稼動状況区分名称"_s;
constexpr int kInOperation = 1;

QList<ListColumn> Columns(int codeWidth, int nameWidth) {
    return {{u"コード"_s, codeWidth, u"コード"_s}, {u"名称"_s, nameWidth, u"名称"_s}};
}

MasterListDefinition Lookup(Range range, const QString& what, const QString& unloadWord) {
    return {.window = {.range = range,
                       .use = ListUse::Lookup,
                       .caption = what + u"一覧"_s,
                       .title = what + u"一覧"_s,
                       .list = u"List"_s + what,
                       .columns = Columns(750, 2500),
                       .unloadWord = unloadWord},
            .hasStatus = range != Range::Position};
}

MasterListDefinition Selection(Range range, const QString& what, const QList<ListColumn>& columns) {
    return {.window = {.range = range,
                       .use = ListUse::Selection,
                       .caption = what + u"選択一覧"_s,
                       .title = what + u"一覧"_s,
                       .list = u"List"_s + what,
                       .columns = columns,
                       .unloadWord = {}},
            .hasStatus = range != Range::Position};
}

const QList<MasterListDefinition>& Definitions() {
    const QString department = u"部門"_s, section = u"セクション"_s, position = u"役職"_s;
    static const QList<MasterListDefinition> definitions = {
        Lookup(Range::Department, department, u"組織台帳更新"_s),
        Lookup(Range::Section, section, u"班台帳更新"_s),
        Lookup(Range::Position, position, u"職位台帳更新"_s),
        Selection(Range::Department, department, Columns(1000, 2300)),
        Selection(Range::Section, section, Columns(1000, 2300)),
        Selection(Range::Position, position, Columns(750, 2500)),
    };
    return definitions;
}

QString NameOf(Range range, const QString& code) {
    database::Recordset record;
    QString name;
    if (OpenRecordset(record,
                      u"SELECT 名称 FROM "_s + ConditionOf(range).master + u" WHERE コード = '"_s + code + u'\''))
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
        DropPendingInput();
        List().SetFocus();
    };
}

void MasterListWindow::Prepare() {
    if (!master_.hasStatus) return;
    FillClassList(Item(kStatus), Item(kStatusList), ReadClassNames(u"K"_s + kStatus));
    status_ = kInOperation;
    QString& condition = Globals().ListCondition;
    const QString column = Table() + u'.' + kStatus;
    if (condition.contains(column, Qt::CaseInsensitive))
        status_ = NumericValue(ExtractCondition(column, condition, condition));
    Item(kStatus).SetValue(status_);
    Item(kStatusList).SetListIndex(status_);
}

QString MasterListWindow::ListQuery() const {
    QString sql = u"SELECT コード,名称 FROM "_s + Table();
    const QString& condition = Globals().ListCondition;
    if (!master_.hasStatus) {
        if (!TrimBlanks(condition).isEmpty()) sql += u" WHERE "_s + condition;
    } else if (status_ != Item(kStatus).MaxValue()) {
        // The list index is the code of the class.
        sql += u" WHERE "_s + Table() + u'.' + kStatus + u" = '"_s + FormatByMask(status_, u"0"_s) + u'\'';
    }
    return sql + u" ORDER BY "_s + Table() + u".コード"_s;
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
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.window.Name() == name; });
    if (found == all.end()) return nullptr;
    auto* window = new MasterListWindow(*found);
    ConnectList(*window);
    return window;
}

Form& LoadedOrNew(const QString& name, ListWindow* (*make)(const QString& name)) {
    if (Form* loaded = LoadedForm(name)) return *loaded;
    ListWindow* window = make(name);
    if (window == nullptr) throw platform::RuntimeError(platform::kItemNotFound, name);
    return *window;
}

void OpenNestedLookup(Form& owner, Range range, Control& item, Control& next) {
    ProgramGlobals& globals = Globals();
    Control* const resultItem = globals.ListResultItem;
    Control* const nextItem = globals.ListNextItem;
    globals.NestedListOwner = &owner;
    globals.NestedListFlag = 1;
    owner.SetEnabled(false);
    globals.ListCondition.clear();
    globals.ListResultItem = &item;
    globals.ListNextItem = &next;
    LoadedOrNew(ConditionOf(range).lookup, MakeMasterListWindow).ShowModal();
    globals.NestedListFlag = 0;
    globals.NestedListOwner = nullptr;
    globals.ListResultItem = resultItem;
    globals.ListNextItem = nextItem;
}

QString LookUpDepartmentName(const QString& code) { return NameOf(Range::Department, code); }

QString LookUpSectionName(const QString& code) { return NameOf(Range::Section, code); }
