#include "screen/modクライアント処理.h"

#include <algorithm>

#include "frame/ProgramGlobals.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

namespace {

using TypeNames = std::initializer_list<QStringView>;

constexpr TypeNames kFocusTypes = {u"CommandButton", u"SSCommand", u"xField", u"xPass", u"xNum",
                                   u"xText",         u"xKana",     u"xZip",   u"xTel"};
constexpr TypeNames kWorkingTypes = {u"CommandButton", u"SSCommand", u"CheckBox",   u"OptionButton", u"ComboBox",
                                     u"xField",        u"xNum",      u"VScrollBar", u"HScrollBar"};
constexpr TypeNames kContainerTypes = {u"Frame", u"SSFrame", u"SSPanel", u"SSTab"};

bool IsOf(const Control& control, TypeNames types) {
    return std::any_of(types.begin(), types.end(), [&control](QStringView type) { return type == control.TypeName(); });
}

void SetAllEnabled(TypeNames types, bool enabled) {
    for (Control* control : Globals().MainForm->Controls()) {
        if (IsOf(*control, types) && control->Visible() && control->Enabled() != enabled) control->SetEnabled(enabled);
    }
}

}  // namespace

void FindNextTabItem() {
    ProgramGlobals& globals = Globals();
    if (globals.MainForm == nullptr || globals.ListNextItem == nullptr) return;
    const int wanted = globals.ListNextItem->TabIndex();
    Control* best = nullptr;
    for (Control* control : globals.MainForm->Controls()) {
        if (!IsOf(*control, kFocusTypes) || !control->Visible() || !control->Enabled() || !control->TabStop()) continue;
        if (control->TabIndex() < wanted) continue;
        if (best == nullptr || control->TabIndex() <= best->TabIndex()) best = control;
    }
    if (best != nullptr) globals.ListNextItem = best;
}

void DisableFormControls() {
    if (Globals().MainForm == nullptr) return;
    SetAllEnabled(kWorkingTypes, false);
    SetAllEnabled(kContainerTypes, false);
}

void EnableFormControls() {
    if (Globals().MainForm == nullptr) return;
    SetAllEnabled(kContainerTypes, true);
    SetAllEnabled(kWorkingTypes, true);
}

bool IsFormLoaded(const QString& name) { return LoadedForm(name) != nullptr; }

void ResetConditionFlags() { Globals().Flags = ConditionFlags(); }
