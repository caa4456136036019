#include "selection/MultiSelectController.h"

#include <algorithm>

#include "globals/ProgramGlobals.h"
#include "selection/ListWindow.h"
#include "selection/ListWindowLayout.h"
#include "selection/MultiSelectDefinitions.h"
#include "selection/MultiSelectRows.h"
#include "selection/SelectionWindow.h"

using namespace Qt::StringLiterals;

namespace {

void MarkRows(ListView& list, bool checked, const std::function<bool(int row)>& which) {
    for (int row = 0; row < list.RowCount(); ++row) {
        if (which(row)) list.SetChecked(row, checked);
    }
}

void WireMarkButtons(ListWindow& window, bool markAll) {
    ListView& list = window.List();
    QList<ListButton> buttons = {{u"btn_複数選択"_s, u"複数選択"_s}, {u"btn_選択クリア"_s, u"選択ｸﾘｱ"_s}};
    if (markAll) buttons.prepend({u"btn_全て選択"_s, u"全て選択"_s});
    AddListButtons(window, buttons);
    const auto everyRow = [](int) { return true; };
    if (markAll) window.Item(u"btn_全て選択"_s).Click = [&list, everyRow] { MarkRows(list, true, everyRow); };
    window.Item(u"btn_複数選択"_s).Click = [&list] {
        MarkRows(list, true, [&list](int row) { return list.Highlighted(row); });
    };
    window.Item(u"btn_選択クリア"_s).Click = [&list, everyRow] { MarkRows(list, false, everyRow); };
}

void GoBack(ListWindow& window, const PickDefinition& definition, const MultiSelectRows& picked) {
    const bool marked = !picked.Codes().isEmpty();
    Globals().Flags.*definition.flag = marked;
    if (definition.forStaff && !marked)
        window.UnloadForm();
    else
        window.HideForm();
    ReturnToHead();
}

}  // namespace

bool WirePicks(ListWindow& window) {
    const auto& all = PickDefinitions();
    const auto definition =
        std::find_if(all.begin(), all.end(), [&](const auto& d) { return d.window == window.Name(); });
    if (definition == all.end()) return false;
    window.List().SetCheckBoxes(true);
    window.List().SetMultiSelect(true);
    WireMarkButtons(window, definition->forStaff);
    const auto* picked = new MultiSelectRows(window, *definition);
    window.Item(u"btn_戻る"_s).Click = [&window, definition, picked] { GoBack(window, *definition, *picked); };
    return true;
}
