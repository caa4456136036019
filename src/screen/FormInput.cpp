// The part of Form that sees every event of its widgets first.

#include <QChildEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include "platform/InputEvent.h"
#include "screen/Form.h"
#include "screen/KeyCodes.h"

namespace {

bool IsTab(const QKeyEvent& key) {
    const bool tab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    return tab && (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
}

bool IsBackward(const QKeyEvent& key) {
    return key.key() == Qt::Key_Backtab || key.modifiers().testFlag(Qt::ShiftModifier);
}

bool IsEnter(const QKeyEvent& key) {
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    return enter && (key.modifiers() & ~Qt::KeypadModifier) == 0;
}

bool TakesClickFocus(const Control& control, const QWidget& clicked) {
    const QWidget& target = control.FocusWidget();
    return (target.focusPolicy() & Qt::ClickFocus) != 0 && (&clicked == &target || target.isAncestorOf(&clicked));
}

/// A held key reports itself once, and Ctrl only when it is pressed without another modifier.
bool RaisesKeyDown(const QKeyEvent& key) {
    if (key.isAutoRepeat()) return false;
    return key.key() != Qt::Key_Control || (key.modifiers() & ~Qt::ControlModifier) == 0;
}

}  // namespace

void Form::Watch(QObject& object) {
    object.installEventFilter(this);
    for (QObject* child : object.children()) {
        if (child->isWidgetType()) Watch(*child);
    }
}

bool Form::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ChildAdded) {
        QObject* child = static_cast<QChildEvent*>(event)->child();
        if (child->isWidgetType()) Watch(*child);
        return false;
    }
    const bool focusIn = event->type() == QEvent::FocusIn;
    const bool hidden = event->type() == QEvent::HideToParent;
    if (!focusIn && !hidden && !platform::IsInput(event->type())) return false;
    // Menus and the lists of combo boxes are windows of their own.
    auto& widget = static_cast<QWidget&>(*watched);
    if (widget.window() != this) return false;
    if (focusIn) NoteQtFocus(widget, static_cast<QFocusEvent*>(event)->reason());
    if (hidden) DropFocusInside(widget);
    return !focusIn && !hidden && FilterInput(widget, *event);
}

bool Form::FilterInput(QWidget& widget, QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            return FilterMouse(widget, event.type());
        case QEvent::KeyPress:
            return FilterKey(widget, static_cast<QKeyEvent&>(event));
        default:
            return !enabled_;
    }
}

bool Form::FilterMouse(QWidget& widget, QEvent::Type type) {
    Control* control = ControlAround(&widget);
    // In a window that is not active yet, Qt moves its focus without a word.
    if (type != QEvent::MouseButtonRelease && control != nullptr && TakesClickFocus(*control, widget)) {
        pendingFocus_ = control;
    }
    {
        const QScopedValueRollback<bool> pressing(pressing_, type == QEvent::MouseButtonPress);
        FlushFocus();
    }
    // A disabled widget would hand its click on to the panel behind.
    return !enabled_ || (control != nullptr && !control->Widget().isEnabled());
}

bool Form::FilterKey(QWidget& widget, const QKeyEvent& key) {
    FlushFocus();
    if (!enabled_) return true;
    Control* control = ControlAround(&widget);
    // A key that its item leaves over comes by again at the widgets around it.
    if (control != activeControl_) return control != nullptr;
    if (control != nullptr && &widget != &control->FocusWidget()) return false;
    if (FilterFormKey(key)) return true;
    if (control == nullptr) return false;
    if (control->KeyDown && RaisesKeyDown(key)) RunEvent([&] { control->KeyDown(KeyCodeOf(key.key())); });
    if (control != activeControl_) return true;
    if (!IsEnter(key) || !control->EnterMovesOn()) return false;
    RunEvent([&] { MoveToNextStop(true); });
    return true;
}

/// The keys that mean the same all over the window.
bool Form::FilterFormKey(const QKeyEvent& key) {
    const bool escape = key.key() == Qt::Key_Escape && EscapePressed;
    if (!IsTab(key) && !escape) return false;
    RunEvent([&] {
        if (escape)
            EscapePressed();
        else
            MoveToNextStop(!IsBackward(key));
    });
    return true;
}
