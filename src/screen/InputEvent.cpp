#include "screen/InputEvent.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr QEvent::Type kInputEvents[] = {
    QEvent::KeyPress,           QEvent::KeyRelease,
    QEvent::ShortcutOverride,   QEvent::Shortcut,
    QEvent::InputMethod,        QEvent::MouseButtonPress,
    QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
    QEvent::MouseMove,          QEvent::HoverEnter,
    QEvent::HoverMove,          QEvent::Wheel,
    QEvent::TouchBegin,         QEvent::TouchUpdate,
    QEvent::TouchEnd,           QEvent::TabletPress,
    QEvent::TabletMove,         QEvent::TabletRelease,
    QEvent::ContextMenu,        QEvent::DragEnter,
    QEvent::DragMove,           QEvent::Drop,
};

}  // namespace

bool IsInput(QEvent::Type type) {
    return std::find(std::begin(kInputEvents), std::end(kInputEvents), type) != std::end(kInputEvents);
}
