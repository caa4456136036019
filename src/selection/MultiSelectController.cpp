#include "selection/MultiSelectController.h"

#include <algorithm>
#include <optional>

#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "selection/ListWindow.h"
#include "selection/ListWindowLayout.h"
#include "selection/SelectionWindow.h"

using namespace Qt::StringLiterals;

namespace {

/// nullopt if the master has no such row or cannot be read.
std::optional<QString> NameInMaster(const MultiSelectDefinition& definition, const QString& code) {
    std::optional<QString> name;
    database::Recordset record;
    const QString sql = u"SELECT * FROM "_s + definition.table + u" WHERE コード = '"_s + code + u'\'';
    if (OpenRecordset(record, sql) && !record.AtEOF()) name = record[definition.nameField].TextOr(QString());
    CloseQuietly(record);
    return name;
}

void CheckRows(ListView& list, bool checked, const std::function<bool(int row)>& which) {
    for (int row = 0; row < list.RowCount(); ++row) {
        if (which(row)) list.SetChecked(row, checked);
    }
}

void ConnectCheckButtons(ListWindow& window, bool checkAll) {
    ListView& list = window.List();
    QList<ListButton> buttons = {{u"btn_複数選択"_s, u"複数選択"_s}, {u"btn_選択クリア"_s, u"選択ｸﾘｱ"_s}};
    if (checkAll) buttons.prepend({u"btn_全て選択"_s, u"全て選択"_s});
    AddListButtons(window, buttons);
    const auto everyRow = [](int) { return true; };
    if (checkAll) window.Item(u"btn_全て選択"_s).Click = [&list, everyRow] { CheckRows(list, true, everyRow); };
    window.Item(u"btn_複数選択"_s).Click = [&list] {
        CheckRows(list, true, [&list](int row) { return list.Highlighted(row); });
    };
    window.Item(u"btn_選択クリア"_s).Click = [&list, everyRow] { CheckRows(list, false, everyRow); };
}

void GoBack(ListWindow& window, const MultiSelectDefinition& definition, const MultiSelectRows& rows) {
    const bool any = !rows.Codes().isEmpty();
    Globals().Flags.*definition.flag = any;
    if (definition.forStaff && !any)
        window.UnloadForm();
    else
        window.HideForm();
    ReturnToHead();
}

}  // namespace

const std::array<MultiSelectDefinition, 4>& MultiSelectDefinitions() {
    using Flags = ConditionFlags;
    static const std::array<MultiSelectDefinition, 4> windows = {{
        {u"wnd部門選択一覧"_s, u"btn_部門個別選択"_s, u"開始部門コード"_s, &Flags::DepartmentPicked, u"M部門"_s,
         u"名称"_s, u"部門："_s},
        {u"wndセクション選択一覧"_s, u"btn_セクション個別選択"_s, u"開始セクションコード"_s, &Flags::SectionPicked,
         u"Mセクション"_s, u"名称"_s, u"セクション："_s},
        {u"wnd役職選択一覧"_s, u"btn_役職個別選択"_s, u"開始役職コード"_s, &Flags::PositionPicked, u"M役職"_s,
         u"名称"_s, u"役職："_s},
        {u"wnd担当者選択一覧"_s, u"btn_担当者個別選択"_s, u"開始担当者コード"_s, &Flags::StaffPicked, u"M担当者"_s,
         u"氏名"_s, u"担当者："_s, true},
    }};
    return windows;
}

MultiSelectRows::MultiSelectRows(ListWindow& window, const MultiSelectDefinition& definition)
    : QObject(&window), window_(window), definition_(definition) {
    RegisterSelection(definition_.window, *this);
    window_.Unload = [this] { UnregisterSelection(definition_.window, *this); };
}

MultiSelectRows::~MultiSelectRows() { UnregisterSelection(definition_.window, *this); }

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
        const auto name = NameInMaster(definition_, code);
        if (name) text += (count == 1 ? definition_.prefix : u","_s) + *name;
    }
    return text;
}

bool ConnectMultiSelect(ListWindow& window) {
    const auto& all = MultiSelectDefinitions();
    const auto definition =
        std::find_if(all.begin(), all.end(), [&](const auto& d) { return d.window == window.Name(); });
    if (definition == all.end()) return false;
    window.List().SetCheckBoxes(true);
    window.List().SetMultiSelect(true);
    ConnectCheckButtons(window, definition->forStaff);
    const auto* rows = new MultiSelectRows(window, *definition);
    window.Item(u"btn_戻る"_s).Click = [&window, definition, rows] { GoBack(window, *definition, *rows); };
    return true;
}
