#include "selection/MultiSelectWindows.h"

#include <algorithm>

#include "globals/ProgramGlobals.h"
#include "platform/RuntimeError.h"
#include "screen/Form.h"
#include "selection/ListWindows.h"
#include "selection/MultiSelectDefinitions.h"

void OpenSelectionWindow(const QString& button) {
    const auto& all = PickDefinitions();
    const auto definition = std::find_if(all.begin(), all.end(), [&](const auto& d) { return d.button == button; });
    if (definition == all.end()) throw platform::RuntimeError(platform::kItemNotFound, button);
    ProgramGlobals& globals = Globals();
    globals.MainForm->SetEnabled(false);
    globals.ListCondition.clear();
    globals.ListResultItem = &globals.MainForm->Item(button);
    globals.ListNextItem = &globals.MainForm->Item(definition->nextItem);
    ShowListWindow(definition->window);
}
