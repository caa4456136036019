// Part of Form.h: filters the events of the widgets in the form.

#include <QChildEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <iterator>

#include "screen/Form.h"
#include "screen/InputEvent.h"

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

/// Not for auto-repeat, and for Ctrl only without another modifier.
bool EmitsKeyDown(const QKeyEvent& key) {
    if (key.isAutoRepeat()) return false;
    return key.key() != Qt::Key_Control || (key.modifiers() & ~Qt::ControlModifier) == 0;
}

struct KeyPair {
    int qtKey;
    int keyCode;
};

constexpr KeyPair kNamedKeys[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Shift, 16},
    {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Return, kKeyReturn},
    {Qt::Key_Enter, kKeyReturn},
    {Qt::Key_Control, kKeyControl},
    {Qt::Key_Escape, kKeyEscape},
    {Qt::Key_Space, 32},
};
constexpr int kFirstFunctionKey = 112;

bool Between(int key, int first, int last) { return first <= key && key <= last; }

/// Key code of KeyDown for a Qt key: letters and digits have the code of their capital. 0 for a key without one.
int KeyCodeOf(int qtKey) {
    if (Between(qtKey, Qt::Key_0, Qt::Key_9) || Between(qtKey, Qt::Key_A, Qt::Key_Z)) return qtKey;
    if (Between(qtKey, Qt::Key_F1, Qt::Key_F24)) return kFirstFunctionKey + qtKey - Qt::Key_F1;
    const auto* found = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                     [qtKey](const KeyPair& pair) { return pair.qtKey == qtKey; });
    return found == std::end(kNamedKeys) ? 0 : found->keyCode;
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
    if (!focusIn && !hidden && !IsInput(event->type())) return false;
    // Menus and the lists of combo boxes are separate windows.
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
    // In a window that is not active yet, Qt moves its focus without an event.
    if (type != QEvent::MouseButtonRelease && control != nullptr && TakesClickFocus(*control, widget)) {
        pendingFocus_ = control;
    }
    {
        const QScopedValueRollback<bool> pressing(pressing_, type == QEvent::MouseButtonPress);
        FlushFocus();
    }
    // A disabled widget would propagate its click to the panel below.
    return !enabled_ || (control != nullptr && !control->Widget().isEnabled());
}

bool Form::FilterKey(QWidget& widget, const QKeyEvent& key) {
    FlushFocus();
    if (!enabled_) return true;
    Control* control = ControlAround(&widget);
    // A key ignored by its item is propagated to the parent widgets.
    if (control != activeControl_) return control != nullptr;
    if (control != nullptr && &widget != &control->FocusWidget()) return false;
    if (FilterFormKey(key)) return true;
    if (control == nullptr) return false;
    if (control->KeyDown && EmitsKeyDown(key)) RunEvent([&] { control->KeyDown(KeyCodeOf(key.key())); });
    if (control != activeControl_) return true;
    if (!IsEnter(key) || !control->EnterMovesOn()) return false;
    RunEvent([&] { MoveToNextStop(true); });
    return true;
}

/// Keys with the same meaning in the whole window.
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
