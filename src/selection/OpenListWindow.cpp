#include "selection/OpenListWindow.h"

#include <algorithm>

#include "globals/ProgramGlobals.h"
#include "platform/RuntimeError.h"
#include "screen/Form.h"
#include "selection/LookupController.h"
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
    static const QList<StaffListDefinition> definitions = {
        {{u"wnd担当者一覧"_s, u"担当者一覧"_s, u"担当者一覧"_s, u"List担当者"_s, Columns(750), u"要員台帳更新"_s}, 0},
        {{u"wnd担当者選択一覧"_s, u"担当者選択一覧"_s, u"担当者一覧"_s, u"List担当者"_s, Columns(1050), {}}, -1},
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
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.window.name == name; });
    if (found == all.end()) return nullptr;
    auto* window = new StaffListWindow(*found);
    if (!ConnectMultiSelect(*window)) ConnectLookup(*window);
    return window;
}

void ShowListWindow(const QString& name) { LoadedOrNew(name, MakeListWindow).ShowModal(); }

void OpenSelectionWindow(const QString& button) {
    const auto& all = MultiSelectDefinitions();
    const auto definition = std::find_if(all.begin(), all.end(), [&](const auto& d) { return d.button == button; });
    if (definition == all.end()) throw platform::RuntimeError(platform::kItemNotFound, button);
    ProgramGlobals& globals = Globals();
    globals.MainForm->SetEnabled(false);
    globals.ListCondition.clear();
    globals.ListResultItem = &globals.MainForm->Item(button);
    globals.ListNextItem = &globals.MainForm->Item(definition->nextItem);
    ShowListWindow(definition->window);
}
