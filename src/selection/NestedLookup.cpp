#include "selection/NestedLookup.h"

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "selection/LoadedListWindow.h"
#include "selection/MasterListWindows.h"

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
