#include "selection/ListWindows.h"

#include "screen/Form.h"
#include "selection/ListWindow.h"
#include "selection/LoadedListWindow.h"
#include "selection/MasterListWindows.h"
#include "selection/StaffListWindows.h"

namespace {

ListWindow* MakeListWindow(const QString& name) {
    if (ListWindow* window = MakeMasterListWindow(name)) return window;
    return MakeStaffListWindow(name);
}

}  // namespace

void ShowListWindow(const QString& name) { LoadedOrNew(name, MakeListWindow).ShowModal(); }
