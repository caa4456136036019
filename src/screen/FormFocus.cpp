// Part of Form.h: tracks the active control and emits LostFocus and GotFocus.

#include <QScopedValueRollback>
#include <algorithm>

#include "screen/Accessibility.h"
#include "screen/Form.h"

namespace {

bool Inside(const QWidget& around, const QWidget* widget) {
    return widget != nullptr && (widget == &around || around.isAncestorOf(widget));
}

void Emit(const std::function<void()>& event) {
    if (event) event();
}

}  // namespace

bool Form::TakesInput(const Control& control) const { return enabled_ && control.Widget().isEnabled(); }

bool Form::CanTakeFocus(const Control& control) const {
    const QWidget& widget = control.FocusWidget();
    return &control.Owner() == this && enabled_ && control.Enabled() && control.Visible() &&
           widget.focusPolicy() != Qt::NoFocus && widget.isEnabledTo(this) && widget.isVisibleTo(this);
}

void Form::SetEnabled(bool enabled) {
    if (!enabled) DropFocusInside(*this);
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    AnnounceEnabled(*this);
}

void Form::SetFocus(Control& control) {
    if (activeControl_ == &control || !CanTakeFocus(control)) return;
    Control* old = activeControl_;
    activeControl_ = &control;
    pendingFocus_ = nullptr;
    // Set Qt's focus first: leaving an item commits the input method's composition, which LostFocus must see.
    LetQtFollow();
    if (old != nullptr && old != arriving_) {
        const QScopedValueRollback<Control*> arriving(arriving_, &control);
        Emit(old->LostFocus);
    }
    // A handler that moved the focus has already emitted the events of that move.
    if (activeControl_ != &control) return;
    control.FocusGiven(pressing_);
    Emit(control.GotFocus);
}

void Form::LetQtFollow() {
    QWidget* wanted = activeControl_ == nullptr ? nullptr : &activeControl_->FocusWidget();
    QWidget* present = focusWidget();
    if (wanted == present) return;
    const QScopedValueRollback<bool> leading(leadingQt_, true);
    if (wanted != nullptr) {
        wanted->setFocus(Qt::OtherFocusReason);
    } else {
        present->clearFocus();
    }
}

void Form::DropFocusFrom(const Control& control) { DropFocusInside(control.Widget()); }

void Form::DropFocusInside(const QWidget& around) {
    if (pendingFocus_ != nullptr && Inside(around, &pendingFocus_->Widget())) pendingFocus_ = nullptr;
    if (activeControl_ != nullptr && Inside(around, &activeControl_->Widget())) activeControl_ = nullptr;
    if (QWidget* present = focusWidget(); Inside(around, present)) {
        const QScopedValueRollback<bool> leading(leadingQt_, true);
        present->clearFocus();
    }
}

std::vector<Control*> Form::Stops() const {
    std::vector<Control*> stops;
    std::copy_if(controls_.begin(), controls_.end(), std::back_inserter(stops),
                 [this](const Control* control) { return control->TabStop() && CanTakeFocus(*control); });
    std::stable_sort(stops.begin(), stops.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
    return stops;
}

void Form::MoveToNextStop(bool forward) {
    std::vector<Control*> stops = Stops();
    if (stops.empty()) return;
    if (!forward) std::reverse(stops.begin(), stops.end());
    const auto next = std::find_if(stops.begin(), stops.end(), [&](const Control* stop) {
        if (activeControl_ == nullptr) return true;
        return forward ? stop->TabIndex() > activeControl_->TabIndex() : stop->TabIndex() < activeControl_->TabIndex();
    });
    SetFocus(next == stops.end() ? *stops.front() : **next);
}

void Form::NoteQtFocus(const QWidget& widget, Qt::FocusReason reason) {
    if (leadingQt_) return;
    const bool byUser = reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
                        reason != Qt::MenuBarFocusReason && reason != Qt::NoFocusReason;
    if (byUser) pendingFocus_ = ControlAround(&widget);
    if (flushQueued_) return;
    flushQueued_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            flushQueued_ = false;
            FlushFocus();
        },
        Qt::QueuedConnection);
}

void Form::FlushFocus() {
    Control* wanted = std::exchange(pendingFocus_, nullptr);
    if (wanted != nullptr) RunEvent([&] { SetFocus(*wanted); });
    LetQtFollow();
}

// Qt calls this to find another focus widget, also when the focused one disappears; only the form moves the focus.
bool Form::focusNextPrevChild(bool) { return false; }
