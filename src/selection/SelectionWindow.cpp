#include "selection/SelectionWindow.h"

#include "frame/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "screen/Form.h"
#include "screen/modクライアント処理.h"

void AnnounceSelection(const QString& window, SelectionSource& source) {
    Globals().SelectionWindows.insert(window, &source);
}

void WithdrawSelection(const QString& window, const SelectionSource& source) {
    // A window that has been unloaded goes later, and its successor may be there before.
    if (Globals().SelectionWindows.value(window) == &source) Globals().SelectionWindows.remove(window);
}

void ReturnToHead() {
    Globals().MainForm->SetEnabled(true);
    RefreshScreen();
    FindNextTabItem();
    Globals().ListNextItem->SetFocus();
}
