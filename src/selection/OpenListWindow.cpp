#include "selection/OpenListWindow.h"

#include <algorithm>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "selection/MasterListWindow.h"
#include "selection/MultiSelectController.h"
#include "selection/StaffListWindow.h"

using namespace Qt::StringLiterals;

namespace {

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

ListWindow* MakeListWindow(const QString& name) {
    if (ListWindow* window = MakeMasterListWindow(name)) return window;
    return MakeStaffListWindow(name);
}

}  // namespace

ListWindow* MakeStaffListWindow(const QString& name) {
    const auto& all = Definitions();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.window.Name() == name; });
    if (found == all.end()) return nullptr;
    auto* window = new StaffListWindow(*found);
    ConnectList(*window);
    return window;
}

void ShowListWindow(const QString& name) { LoadedOrNew(name, MakeListWindow).ShowModal(); }

void OpenSelectionWindow(const RangeCondition& range) {
    ProgramGlobals& globals = Globals();
    globals.MainForm->SetEnabled(false);
    globals.ListCondition.clear();
    globals.ListResultItem = &globals.MainForm->Item(range.selection.button);
    globals.ListNextItem = &globals.MainForm->Item(range.fromItem);
    ShowListWindow(range.selection.window);
}
