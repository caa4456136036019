#include "screen/modクライアント処理.h"

#include <algorithm>

#include <QStringList>

#include "frame/ProgramGlobals.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kFocusable = {u"CommandButton"_s, u"SSCommand"_s, u"xField"_s, u"xPass"_s, u"xNum"_s,
                                u"xText"_s,         u"xKana"_s,     u"xZip"_s,   u"xTel"_s};
const QStringList kWorking = {u"CommandButton"_s, u"SSCommand"_s, u"CheckBox"_s,   u"OptionButton"_s, u"ComboBox"_s,
                              u"xField"_s,        u"xNum"_s,      u"VScrollBar"_s, u"HScrollBar"_s};
const QStringList kContainers = {u"Frame"_s, u"SSFrame"_s, u"SSPanel"_s, u"SSTab"_s};

void SetEnabledOf(const QStringList& types, bool enabled) {
    for (Control* control : Globals().MainForm->Controls()) {
        if (types.contains(control->TypeName()) && control->Visible() && control->Enabled() != enabled)
            control->SetEnabled(enabled);
    }
}

}  // namespace

void FindNextTabItem() {
    const int wanted = Globals().ListNextItem->TabIndex();
    Control* best = nullptr;
    for (Control* control : Globals().MainForm->Controls()) {
        if (!kFocusable.contains(control->TypeName())) continue;
        if (!control->Visible() || !control->Enabled() || !control->TabStop() || control->TabIndex() < wanted) continue;
        if (best == nullptr || control->TabIndex() <= best->TabIndex()) best = control;
    }
    if (best != nullptr) Globals().ListNextItem = best;
}

void DisableFormControls() {
    SetEnabledOf(kWorking, false);
    SetEnabledOf(kContainers, false);
}

void EnableFormControls() {
    SetEnabledOf(kContainers, true);
    SetEnabledOf(kWorking, true);
}

bool IsFormLoaded(const QString& name) {
    return std::any_of(LoadedForms().begin(), LoadedForms().end(),
                       [&name](const Form* form) { return form->Name() == name; });
}

void ResetConditionFlags() { Globals().Flags = ConditionFlags(); }
