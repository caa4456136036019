#pragma once

#include <QtGlobal>

namespace platform {

/// Lets PendingCloseBox know of the presses on close boxes of this program's windows. On X11 alone; elsewhere none is
/// ever pending. Needs the application object; to be called once.
void WatchCloseBoxes();

/// Native id of the window whose close box was pressed last, from the moment at which the window system reports it
/// until the toolkit turns the report into an event; 0 where there is none. From any thread.
quintptr PendingCloseBox();
void ForgetCloseBox();

}  // namespace platform
