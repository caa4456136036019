#include "screen/CloseBox.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QLibrary>
#include <QThread>
#include <QWindow>
#include <atomic>
#include <cstdlib>

#include <xcb/xcb.h>

#include "platform/EndRequest.h"

// Qt reads X events in a separate thread and queues them until the program processes events. That must not happen while
// a statement runs, because handlers would run inside it. A second X connection does not receive WM_DELETE_WINDOW, and
// Qt's queue is private. Therefore the two libxcb functions called by that thread are interposed: the definitions below
// precede the library's in symbol lookup, inspect each event and pass it on.
//
// When the connection to the display breaks, Qt calls exit() as soon as it notices, and the program could neither write
// its last rows nor answer the program that started it. Therefore Qt learns of it after the program's own end.

namespace {

std::atomic<xcb_atom_t> g_protocols = XCB_ATOM_NONE;
std::atomic<xcb_atom_t> g_deleteWindow = XCB_ATOM_NONE;
std::atomic<xcb_window_t> g_pending = XCB_WINDOW_NONE;
std::atomic<bool> g_displayLost = false;

constexpr unsigned long kTimeToEnd = 10;  // seconds

xcb_atom_t AtomOf(xcb_connection_t* connection, const QByteArray& name) {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData());
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    const xcb_atom_t atom = reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
    std::free(reply);
    return atom;
}

/// The window that a WM_DELETE_WINDOW message is for; none for any other event.
xcb_window_t WindowToClose(const xcb_generic_event_t* event) {
    constexpr unsigned kSentByAnotherProgram = 0x80;
    if (event == nullptr || (event->response_type & ~kSentByAnotherProgram) != XCB_CLIENT_MESSAGE)
        return XCB_WINDOW_NONE;
    const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event);
    const bool closes = g_deleteWindow != XCB_ATOM_NONE && message->format == 32 && message->type == g_protocols &&
                        message->data.data32[0] == g_deleteWindow;
    return closes ? message->window : xcb_window_t{XCB_WINDOW_NONE};
}

xcb_generic_event_t* Noted(xcb_generic_event_t* event) {
    if (const xcb_window_t window = WindowToClose(event)) g_pending = window;
    return event;
}

/// Clears the pending window when Qt dispatches the event.
class CloseBoxFilter : public QAbstractNativeEventFilter {
  public:
    bool nativeEventFilter(const QByteArray& type, void* event, qintptr* /*result*/) override {
        if (type != "xcb_generic_event_t") return false;
        xcb_window_t window = WindowToClose(static_cast<const xcb_generic_event_t*>(event));
        if (window != XCB_WINDOW_NONE) g_pending.compare_exchange_strong(window, XCB_WINDOW_NONE);
        return false;
    }
};

/// The window whose close box was clicked; null if it has no close box or a modal window blocks its input.
QWindow* ClosingWindow() {
    const xcb_window_t id = g_pending;
    if (id == XCB_WINDOW_NONE) return nullptr;
    const QWindow* modal = QGuiApplication::modalWindow();
    for (QWindow* window : QGuiApplication::topLevelWindows())
        if (window->handle() != nullptr && window->winId() == id && (modal == nullptr || modal == window) &&
            window->flags().testFlag(Qt::WindowCloseButtonHint))
            return window;
    return nullptr;
}

class CloseBoxRequests : public platform::EndSource {
  public:
    bool Pending() const override { return ClosingWindow() != nullptr; }

    // A modal window gets its normal close event later.
    void CarryOut() override {
        QWindow* window = ClosingWindow();
        if (window == nullptr || window->modality() != Qt::NonModal) return;
        const platform::Ending ending;
        window->close();
        g_pending = XCB_WINDOW_NONE;
    }
};

/// Ends the program as a termination signal does. Called in the thread in which Qt reads events.
void EndWithoutDisplay() {
    g_displayLost = true;
    platform::RequestEnd();
    QMetaObject::invokeMethod(qApp, platform::CarryOutEndRequest, Qt::QueuedConnection);
    // Usually the process ends meanwhile.
    QThread::sleep(kTimeToEnd);
    g_displayLost = false;
}

/// The library's own definition of a function that is interposed here.
template <typename Function>
Function* LibraryFunction(const char* name) {
    return reinterpret_cast<Function*>(QLibrary(QStringLiteral("xcb"), 1).resolve(name));
}

}  // namespace

extern "C" {

xcb_generic_event_t* xcb_wait_for_event(xcb_connection_t* connection) {
    static const auto library = LibraryFunction<decltype(xcb_wait_for_event)>("xcb_wait_for_event");
    xcb_generic_event_t* event = library(connection);
    if (event == nullptr && g_deleteWindow != XCB_ATOM_NONE) EndWithoutDisplay();
    return Noted(event);
}

int xcb_connection_has_error(xcb_connection_t* connection) {
    static const auto library = LibraryFunction<decltype(xcb_connection_has_error)>("xcb_connection_has_error");
    return g_displayLost ? 0 : library(connection);
}

xcb_generic_event_t* xcb_poll_for_queued_event(xcb_connection_t* connection) {
    static const auto library = LibraryFunction<decltype(xcb_poll_for_queued_event)>("xcb_poll_for_queued_event");
    return Noted(library(connection));
}

}  // extern "C"

void WatchCloseBoxes() {
    // Other platform plugins provide this interface, too.
    if (QGuiApplication::platformName() != QStringLiteral("xcb")) return;
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || x11->connection() == nullptr) return;
    static CloseBoxFilter filter;
    static CloseBoxRequests requests;
    qGuiApp->installNativeEventFilter(&filter);
    g_protocols = AtomOf(x11->connection(), "WM_PROTOCOLS");
    g_deleteWindow = AtomOf(x11->connection(), "WM_DELETE_WINDOW");
    platform::SetEndSource(&requests);
}
