#pragma once

#include <QEvent>

namespace platform {

/// True for what keyboard, mouse, touch screen, pen and input method do to a window or widget. What merely leaves a
/// widget, and the close box of a window, are none of them.
bool IsInput(QEvent::Type type);

}  // namespace platform
