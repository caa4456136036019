#pragma once

#include <QtGlobal>

namespace platform {

/// Starts recording clicks on the close box of this program's windows, for PendingCloseBox. X11 only; on other
/// platforms none is ever pending. Needs the application object; call once.
void WatchCloseBoxes();

/// Native id of the window whose close box was clicked last, from when the X server reports it until Qt turns it into a
/// close event; 0 if none. Thread-safe.
quintptr PendingCloseBox();
/// Clears PendingCloseBox.
void ForgetCloseBox();

}  // namespace platform
