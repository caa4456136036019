#include "selection/SelectionWindow.h"

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "screen/Form.h"
#include "screen/modクライアント処理.h"

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
