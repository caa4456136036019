// Separate file: the X headers must be included last, and their macros collide with Qt and GoogleTest.

#include "support/VirtualScreen.h"

#include <X11/Xlib.h>

bool VirtualScreen::Close(const QString& window) const {
    ::Display* display = XOpenDisplay(display_.toLatin1().constData());
    if (display == nullptr) return false;
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window.toULong();
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    const bool sent = XSendEvent(display, event.xclient.window, False, NoEventMask, &event) != 0;
    XCloseDisplay(display);
    return sent;
}
