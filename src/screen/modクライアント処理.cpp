#include "screen/modクライアント処理.h"

#include <algorithm>

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

void SetAllEnabled(const Form& form, TypeNames types, bool enabled) {
    for (Control* control : form.Controls()) {
        if (IsOf(*control, types) && control->Visible() && control->Enabled() != enabled) control->SetEnabled(enabled);
    }
}

}  // namespace

Control* FindNextTabItem(const Form* form, Control* from) {
    if (form == nullptr || from == nullptr) return from;
    Control* best = nullptr;
    for (Control* control : form->Controls()) {
        if (!IsOf(*control, kFocusTypes) || !control->Visible() || !control->Enabled() || !control->TabStop()) continue;
        if (control->TabIndex() < from->TabIndex()) continue;
        if (best == nullptr || control->TabIndex() <= best->TabIndex()) best = control;
    }
    return best != nullptr ? best : from;
}

void DisableFormControls(const Form* form) {
    if (form == nullptr) return;
    SetAllEnabled(*form, kWorkingTypes, false);
    SetAllEnabled(*form, kContainerTypes, false);
}

void EnableFormControls(const Form* form) {
    if (form == nullptr) return;
    SetAllEnabled(*form, kContainerTypes, true);
    SetAllEnabled(*form, kWorkingTypes, true);
}

bool IsFormLoaded(const QString& name) { return LoadedForm(name) != nullptr; }
