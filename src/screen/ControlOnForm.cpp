// The part of Control that depends on Form; in a file separate from Control.cpp to avoid an include cycle.

#include "screen/Control.h"
#include "screen/Form.h"

Control::Control(Form& form, QWidget& widget, QString typeName, QString name, int index)
    : form_(form), widget_(widget), typeName_(std::move(typeName)), name_(std::move(name)), index_(index) {
    widget_.setObjectName(index_ < 0 ? name_ : name_ + u'_' + QString::number(index_));
    form_.Register(*this);
}

Control::~Control() {
    // Some widgets emit signals in their destructors, when the handlers are already destroyed.
    widget_.blockSignals(true);
    form_.Unregister(*this);
}

void Control::SetEnabled(bool enabled) {
    // Qt moves the focus to a neighbour when the focused widget is disabled or hidden, so drop the focus first.
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

void Control::EmitByUser(const std::function<void()>& event) {
    form_.FlushFocus();
    if (!event || !form_.TakesInput(*this)) return;
    Form::RunEvent(event);
}
