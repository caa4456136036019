#include "selection/MasterListWindow.h"

#include "data/ClassLists.h"
#include "screen/ComboItem.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "selection/ConditionStrings.h"
#include "selection/ListWindowLayout.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

const QString kStatus = u"稼動状況区分"_s;
const QString kStatusList = u"稼動状況区分名称"_s;
constexpr int kInOperation = 1;

}  // namespace

MasterListWindow::MasterListWindow(MasterListDefinition master)
    : ListWindow(master.window), master_(std::move(master)) {
    BuildMasterItems(*this, Definition(), master_.hasStatus);
    if (master_.hasStatus) WireStatus();
}

void MasterListWindow::WireStatus() {
    Control& number = Item(kStatus);
    Control& list = Item(kStatusList);
    PairClass(number, list, [this](int value) { status_ = value; });
    for (Control* item : {&number, &list}) ReportsItself(*item);
    // In spite of its caption it clears nothing: it is how a changed status is applied.
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
        // The place in the list is the code of the class.
        sql += u" WHERE "_s + master_.table + u'.' + kStatus + u" = '"_s + FormatByMask(status_, u"0"_s) + u'\'';
    }
    return sql + u" ORDER BY "_s + master_.table + u".コード"_s;
}

void MasterListWindow::LoadMasterList() {
    List().ClearRows();
    QList<ListRow> rows;
    database::Recordset record;
    if (OpenRecordset(record, ListQuery(), false)) {
        for (; !record.AtEOF(); record.MoveNext()) rows << RowOf(record);
    }
    CloseQuietly(record);
    List().AddRows(std::move(rows));
}
