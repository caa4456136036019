#include "selection/SelectionWindow.h"

#include <optional>

#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "screen/Form.h"
#include "screen/modクライアント処理.h"
#include "selection/ListWindow.h"
#include "selection/ListWindowLayout.h"

using namespace Qt::StringLiterals;

namespace {

/// nullopt if the master has no such row or cannot be read.
std::optional<QString> NameInMaster(const RangeCondition& condition, const QString& code) {
    std::optional<QString> name;
    database::Recordset record;
    const QString sql = u"SELECT * FROM "_s + condition.master + u" WHERE コード = '"_s + code + u'\'';
    if (OpenRecordset(record, sql) && !record.AtEOF()) name = record[condition.nameColumn].TextOr(QString());
    CloseQuietly(record);
    return name;
}

void CheckRows(ListView& list, bool checked, const std::function<bool(int row)>& which) {
    for (int row = 0; row < list.RowCount(); ++row) {
        if (which(row)) list.SetChecked(row, checked);
    }
}

enum class CheckAll { None, Offered };

void ConnectCheckButtons(ListWindow& window, CheckAll checkAll) {
    ListView& list = window.List();
    QList<ListButton> buttons = {{u"btn_複数選択"_s, u"複数選択"_s}, {u"btn_選択クリア"_s, u"選択ｸﾘｱ"_s}};
    if (checkAll == CheckAll::Offered) buttons.prepend({u"btn_全て選択"_s, u"全て選択"_s});
    AddListButtons(window, buttons);
    const auto everyRow = [](int) { return true; };
    if (checkAll == CheckAll::Offered)
        window.Item(u"btn_全て選択"_s).Click = [&list, everyRow] { CheckRows(list, true, everyRow); };
    window.Item(u"btn_複数選択"_s).Click = [&list] {
        CheckRows(list, true, [&list](int row) { return list.Highlighted(row); });
    };
    window.Item(u"btn_選択クリア"_s).Click = [&list, everyRow] { CheckRows(list, false, everyRow); };
}

void GoBack(ListWindow& window, const RangeCondition& condition, const MultiSelectRows& rows) {
    const bool any = !rows.Codes().isEmpty();
    Globals().Flags.*condition.selection.flag = any;
    // The other windows keep their list and status.
    if (condition.id == Range::Staff && !any)
        window.UnloadForm();
    else
        window.HideForm();
    ReturnToHead();
}

}  // namespace

void RegisterSelection(const QString& window, SelectionSource& source) {
    Globals().SelectionWindows.insert(window, &source);
}

void UnregisterSelection(const QString& window, const SelectionSource& source) {
    // An unloaded window is deleted later, possibly after its successor has registered.
    if (Globals().SelectionWindows.value(window) == &source) Globals().SelectionWindows.remove(window);
}

void ReturnToHead() {
    Globals().MainForm->SetEnabled(true);
    RefreshScreen();
    Globals().ListNextItem = FindNextTabItem(Globals().MainForm, Globals().ListNextItem);
    Globals().ListNextItem->SetFocus();
}

MultiSelectRows::MultiSelectRows(ListWindow& window, const RangeCondition& condition)
    : QObject(&window), window_(window), condition_(condition) {
    RegisterSelection(condition_.selection.window, *this);
    window_.Unload = [this] { UnregisterSelection(condition_.selection.window, *this); };
}

MultiSelectRows::~MultiSelectRows() { UnregisterSelection(condition_.selection.window, *this); }

QStringList MultiSelectRows::Codes() const {
    const ListView& list = window_.List();
    QStringList codes;
    for (int row = 0; row < list.RowCount(); ++row) {
        if (list.Checked(row)) codes << list.Row(row).key.mid(1);
    }
    return codes;
}

QString MultiSelectRows::BuildSelectionCondition(const QString& table, const QString& column) const {
    QStringList terms;
    for (const QString& code : Codes()) terms << table + u'.' + column + u" = '"_s + code + u'\'';
    return terms.isEmpty() ? QString() : u'(' + terms.join(u" OR "_s) + u')';
}

QString MultiSelectRows::DescribeSelection() const {
    QString text;
    int count = 0;
    for (const QString& code : Codes()) {
        ++count;
        const auto name = NameInMaster(condition_, code);
        if (name) text += (count == 1 ? condition_.selectionLabel : u","_s) + *name;
    }
    return text;
}

void ConnectMultiSelect(ListWindow& window) {
    const RangeCondition& condition = ConditionOf(window.Definition().range);
    window.List().SetCheckBoxes(true);
    window.List().SetMultiSelect(true);
    ConnectCheckButtons(window, condition.id == Range::Staff ? CheckAll::Offered : CheckAll::None);
    const auto* rows = new MultiSelectRows(window, condition);
    window.Item(u"btn_戻る"_s).Click = [&window, &condition, rows] { GoBack(window, condition, *rows); };
}

void ConnectList(ListWindow& window) {
    if (window.Definition().use == ListUse::Lookup)
        ConnectLookup(window);
    else
        ConnectMultiSelect(window);
}
