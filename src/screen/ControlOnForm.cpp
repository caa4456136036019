// Part of Control.h: all of it. It needs Form.h, which includes Control.h; files of one name must not form a cycle.

#include "screen/Control.h"

#include <QtMath>

#include "platform/RuntimeError.h"
#include "screen/Form.h"
#include "screen/PendingInput.h"

using namespace Qt::StringLiterals;

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
    if (InputBlock::Exists()) return;  // a screen reader's press is no input event
    form_.FlushFocus();
    if (!event || !form_.TakesInput(*this)) return;
    Form::RunEvent(event);
}

void Control::SetTop(int twips) { widget_.move(widget_.x(), qRound(double(twips) / kTwipsPerPixel)); }
void Control::SetHeight(int twips) { widget_.resize(widget_.width(), qRound(double(twips) / kTwipsPerPixel)); }

void Control::Unsupported(const char* property) const {
    throw platform::RuntimeError(platform::kPropertyNotSupported, name_ + u": "_s + QString::fromLatin1(property));
}

QString Control::Text() const { Unsupported("Text"); }
void Control::SetText(const QString&) { Unsupported("Text"); }
QString Control::Caption() const { Unsupported("Caption"); }
void Control::SetCaption(const QString&) { Unsupported("Caption"); }
int Control::Value() const { Unsupported("Value"); }
void Control::SetValue(int) { Unsupported("Value"); }
int Control::MinValue() const { Unsupported("MinValue"); }
int Control::MaxValue() const { Unsupported("MaxValue"); }
void Control::SetMinValue(int) { Unsupported("MinValue"); }
void Control::SetMaxValue(int) { Unsupported("MaxValue"); }
int Control::ListIndex() const { Unsupported("ListIndex"); }
void Control::SetListIndex(int) { Unsupported("ListIndex"); }
int Control::LargeChange() const { Unsupported("LargeChange"); }
void Control::SetLargeChange(int) { Unsupported("LargeChange"); }
void Control::ClearList() { Unsupported("List"); }
void Control::AddItem(const QString&) { Unsupported("AddItem"); }
int Control::MaxLength() const { Unsupported("MaxLength"); }
QColor Control::ForeColor() const { Unsupported("ForeColor"); }
void Control::SetForeColor(const QColor&) { Unsupported("ForeColor"); }
QColor Control::BackColor() const { Unsupported("BackColor"); }
void Control::SetBackColor(const QColor&) { Unsupported("BackColor"); }
