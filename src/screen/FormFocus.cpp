// The focus of a form. The form decides and Qt follows, since Qt raises its focus events late, twice, or not at all
// around message boxes, modal windows and disabled items.

#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>

#include "screen/Form.h"

bool Form::CanTakeFocus(const Control& control) const {
    return enabled_ && control.Enabled() && control.Visible() && control.Widget().isEnabledTo(this) &&
           control.Widget().isVisibleTo(this);
}

void Form::SetFocus(Control& control) {
    pendingFocus_ = nullptr;
    if (&control == activeControl_ || !CanTakeFocus(control)) return;
    const int move = ++focusMoves_;
    Control* left = std::exchange(activeControl_, nullptr);
    if (left != nullptr && left->LostFocus) left->LostFocus();
    if (move != focusMoves_ || !CanTakeFocus(control)) return;
    activeControl_ = &control;
    LetQtFollow(control);
    if (control.GotFocus) control.GotFocus();
}

void Form::LetQtFollow(Control& control) {
    leadingQt_ = true;
    control.FocusWidget().setFocus(Qt::OtherFocusReason);
    leadingQt_ = false;
    control.FocusGiven();
}

void Form::DropFocus() {
    pendingFocus_ = nullptr;
    activeControl_ = nullptr;
    ++focusMoves_;
    leadingQt_ = true;
    QWidget::setFocus(Qt::OtherFocusReason);  // first, or Qt would hop from item to item while they are disabled
    leadingQt_ = false;
}

void Form::DropFocusFrom(const Control& control) {
    const QWidget* focused = focusWidget();
    const bool inside = focused != nullptr && (focused == &control.Widget() || control.Widget().isAncestorOf(focused));
    if (inside || activeControl_ == &control) DropFocus();
}

void Form::MoveToNextStop(bool forward) {
    std::vector<Control*> stops;
    std::copy_if(controls_.begin(), controls_.end(), std::back_inserter(stops),
                 [this](const Control* control) { return control->TabStop() && CanTakeFocus(*control); });
    if (stops.empty()) return;
    std::stable_sort(stops.begin(), stops.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
    if (!forward) std::reverse(stops.begin(), stops.end());
    const int here = activeControl_ == nullptr ? -1 : activeControl_->TabIndex();
    const auto next = std::find_if(stops.begin(), stops.end(), [&](const Control* stop) {
        return here >= 0 && (forward ? stop->TabIndex() > here : stop->TabIndex() < here);
    });
    SetFocus(next == stops.end() ? *stops.front() : **next);
}

Control* Form::ControlOf(const QObject* widget) const {
    for (; widget != nullptr && widget != this; widget = widget->parent())
        if (Control* control = byWidget_.value(widget, nullptr)) return control;
    return nullptr;
}

/// Qt gave an item the focus by a mouse press or for an assistive tool. Its events are raised when Qt has finished
/// with its own, and at the latest before the next input arrives.
void Form::NoteQtFocus(const QWidget& widget, Qt::FocusReason reason) {
    const bool byUser = reason == Qt::MouseFocusReason || reason == Qt::OtherFocusReason ||
                        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    if (leadingQt_ || !byUser) return;
    Control* control = ControlOf(&widget);
    if (control == nullptr || control == activeControl_) return;
    pendingFocus_ = control;
    QMetaObject::invokeMethod(this, [this] { RaisePendingFocus(); }, Qt::QueuedConnection);
}

void Form::RaisePendingFocus() {
    if (pendingFocus_ == nullptr) return;
    Control& control = *pendingFocus_;
    RunEvent([&] { SetFocus(control); });
    if (activeControl_ != nullptr && focusWidget() != &activeControl_->FocusWidget()) LetQtFollow(*activeControl_);
}

bool Form::FilterKey(QWidget& widget, QKeyEvent& event) {
    Control* control = ControlOf(&widget);
    const int key = event.key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        RunEvent([&] { MoveToNextStop(key == Qt::Key_Tab && !(event.modifiers() & Qt::ShiftModifier)); });
        return true;
    }
    if (key == Qt::Key_Escape && EscapePressed) {
        RunEvent(EscapePressed);
        return true;
    }
    if (control == nullptr || &control->FocusWidget() != &widget) return false;
    const int code = key == Qt::Key_Control                           ? kKeyControl
                     : key == Qt::Key_Return || key == Qt::Key_Enter ? kKeyReturn
                                                                      : key;
    const bool withOthers = key == Qt::Key_Control && (event.modifiers() & ~Qt::ControlModifier) != Qt::NoModifier;
    if (control->KeyDown && !event.isAutoRepeat() && !withOthers) RunEvent([&] { control->KeyDown(code); });
    if (code != kKeyReturn) return false;
    RunEvent([&] {
        if (control->EnterClicks())
            control->Click();
        else
            MoveToNextStop(true);
    });
    return true;
}

/// The wheel belongs to the form as a whole: no item under the pointer acts on it a second time.
bool Form::FilterWheel(QWheelEvent& event) {
    const int delta = event.angleDelta().y();
    if (!WheelTurned || event.angleDelta().isNull() || delta == 0) return false;
    RunEvent([&] { WheelTurned(delta); });
    event.accept();
    return true;
}

bool Form::FilterInput(QWidget& widget, QEvent& event) {
    if (!enabled_) {
        event.accept();
        return true;
    }
    RaisePendingFocus();
    if (event.type() == QEvent::KeyPress) return FilterKey(widget, static_cast<QKeyEvent&>(event));
    if (event.type() == QEvent::Wheel) return FilterWheel(static_cast<QWheelEvent&>(event));
    return false;
}

bool Form::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::Drop: break;
        default: return false;
    }
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->window() != this) return false;
    if (event->type() == QEvent::FocusIn) {
        NoteQtFocus(*widget, static_cast<QFocusEvent*>(event)->reason());
        return false;
    }
    return FilterInput(*widget, *event);
}
