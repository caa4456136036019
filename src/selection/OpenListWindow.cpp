#include "selection/OpenListWindow.h"

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "selection/MasterListWindow.h"
#include "selection/StaffListWindow.h"

namespace {

ListWindow* MakeListWindow(const QString& name) {
    if (ListWindow* window = MakeMasterListWindow(name)) return window;
    return MakeStaffListWindow(name);
}

}  // namespace

void ShowListWindow(const QString& name) { LoadedOrNew(name, MakeListWindow).ShowModal(); }

void OpenSelectionWindow(const RangeCondition& range) {
    ProgramGlobals& globals = Globals();
    globals.MainForm->SetEnabled(false);
    globals.ListCondition.clear();
    globals.ListResultItem = &globals.MainForm->Item(range.selection.button);
    globals.ListNextItem = &globals.MainForm->Item(range.fromItem);
    ShowListWindow(range.selection.window);
}
