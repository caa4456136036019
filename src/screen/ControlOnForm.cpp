// The part of Control that leans on its form.

#include "screen/Control.h"
#include "screen/Form.h"

Control::Control(Form& form, QWidget& widget, QString typeName, QString name, int index)
    : form_(form), widget_(widget), typeName_(std::move(typeName)), name_(std::move(name)), index_(index) {
    widget_.setObjectName(index_ < 0 ? name_ : name_ + u'_' + QString::number(index_));
    form_.Register(*this);
}

Control::~Control() {
    // Some widgets still signal while they come apart, and the handlers are gone by then.
    widget_.blockSignals(true);
    form_.Unregister(*this);
}

void Control::SetEnabled(bool enabled) {
    // Qt hops to a neighbour when the widget that has its focus is disabled or hidden, so the focus goes first.
    if (!enabled) form_.DropFocusFrom(*this);
    enabled_ = enabled;
    widget_.setEnabled(enabled);
}

void Control::SetVisible(bool visible) {
    if (!visible) form_.DropFocusFrom(*this);
    visible_ = visible;
    widget_.setVisible(visible);
}

void Control::SetFocus() { form_.SetFocus(*this); }

void Control::RaiseByUser(const std::function<void()>& event) {
    form_.FlushFocus();
    if (!event || !form_.TakesInput(*this)) return;
    Form::RunEvent(event);
}
