// Part of ListWindow.h: ConnectLookup.

#include "globals/ProgramGlobals.h"
#include "screen/modクライアント処理.h"
#include "selection/ListWindow.h"

using namespace Qt::StringLiterals;

namespace {

void CloseLookup(ListWindow& window) {
    if (Globals().MainForm->Name().contains(window.Definition().unloadWord, Qt::CaseInsensitive))
        window.UnloadForm();
    else
        window.HideForm();
}

bool IsNested() { return Globals().NestedListFlag == 1; }

void EnableCaller() {
    (IsNested() ? Globals().NestedListOwner : Globals().MainForm)->SetEnabled(true);
    Globals().ListCondition.clear();
}

void ChooseRow(ListWindow& window) {
    const int row = window.List().SelectedRow();
    if (row < 0) return;
    Globals().ListResultItem->SetText(window.List().Row(row).text);
    CloseLookup(window);
    EnableCaller();
    // The item's LostFocus accepts the code and reads the name.
    Globals().ListResultItem->SetFocus();
    if (!IsNested()) Globals().ListNextItem = FindNextTabItem(Globals().MainForm, Globals().ListNextItem);
    Globals().ListNextItem->SetFocus();
}

void GoBack(ListWindow& window) {
    CloseLookup(window);
    EnableCaller();
    Globals().ListResultItem->SetFocus();
}

}  // namespace

void ConnectLookup(ListWindow& window) {
    ListView& list = window.List();
    list.KeyPress = [&window](int key) {
        if (key == kKeyReturn) ChooseRow(window);
    };
    list.Click = [&window] { ChooseRow(window); };
    window.Item(u"btn_戻る"_s).Click = [&window] { GoBack(window); };
}
