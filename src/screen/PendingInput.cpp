#include "screen/PendingInput.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QSet>
#include <QThread>
#include <QWindow>
#include <cstdlib>

#include <xcb/xcb.h>

#include "platform/EndRequest.h"
#include "screen/InputEvent.h"

namespace {

constexpr int kMarkerTimeout = 2000;  // milliseconds; the server usually answers within one

const QString kName = QStringLiteral("InputFilter");

int g_blocks = 0;

/// Identifies a key in its press, repetitions and release; its symbol depends on the modifiers.
quint64 KeyOf(const QKeyEvent& key) {
    return key.nativeScanCode() != 0 ? key.nativeScanCode() : quint64{1} << 32 | static_cast<quint32>(key.key());
}

/// Discards input while an InputBlock exists, and the rest of presses that it has discarded.
class InputFilter : public QObject {
  public:
    using QObject::QObject;

    bool IsNeeded() const { return InputBlock::Exists() || buttons_ || !keys_.isEmpty() || !repeating_.isEmpty(); }

  protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        const bool discard = Discards(event);
        if (!IsNeeded()) qApp->removeEventFilter(this);
        return discard;
    }

  private:
    bool Discards(QEvent* event) {
        switch (event->type()) {
            case QEvent::KeyPress:
            case QEvent::ShortcutOverride:
            case QEvent::KeyRelease:
                return FilterKey(static_cast<const QKeyEvent&>(*event));
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
            case QEvent::MouseButtonRelease:
                return FilterButton(static_cast<const QMouseEvent&>(*event));
            case QEvent::MouseMove:
                return InputBlock::Exists() || (static_cast<QMouseEvent*>(event)->buttons() & buttons_);
            default:
                return InputBlock::Exists() && IsInput(event->type());
        }
    }

    bool FilterKey(const QKeyEvent& key) {
        const quint64 id = KeyOf(key);
        if (key.isAutoRepeat()) {
            // A key held since before the block repeats no more either, but gets its release.
            if (InputBlock::Exists()) repeating_.insert(id);
            return InputBlock::Exists() || repeating_.contains(id) || keys_.contains(id);
        }
        repeating_.remove(id);
        if (key.type() == QEvent::KeyRelease) return keys_.remove(id);
        // The release of an earlier press has gone to another program.
        if (!InputBlock::Exists()) keys_.remove(id);
        if (InputBlock::Exists()) keys_.insert(id);
        return InputBlock::Exists();
    }

    bool FilterButton(const QMouseEvent& mouse) {
        const bool discarded = buttons_.testFlag(mouse.button());
        const bool release = mouse.type() == QEvent::MouseButtonRelease;
        buttons_.setFlag(mouse.button(), !release && InputBlock::Exists());
        return release ? discarded : InputBlock::Exists();
    }

    QSet<quint64> keys_;       ///< keys whose press was discarded, until their release
    QSet<quint64> repeating_;  ///< keys of which a repetition was discarded, until their release
    Qt::MouseButtons buttons_;
};

/// A message to this program. The display server delivers it after all input that it has at the time.
class Marker : public QAbstractNativeEventFilter {
  public:
    explicit Marker(xcb_connection_t& connection) : connection_(connection), window_(xcb_generate_id(&connection)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(&connection)).data;
        xcb_create_window(&connection, 0, window_, screen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_client_message_event_t message = {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window_;
        message.type = XCB_ATOM_WM_COMMAND;  // any; the window is this object's own
        // Without an event mask the server sends it to the creator of the window.
        xcb_send_event(&connection, 0, window_, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
        qApp->installNativeEventFilter(this);
        // With the reply the marker has been received, too.
        std::free(xcb_get_input_focus_reply(&connection, xcb_get_input_focus(&connection), nullptr));
    }
    ~Marker() override {
        qApp->removeNativeEventFilter(this);
        xcb_destroy_window(&connection_, window_);
    }
    Marker(const Marker&) = delete;
    Marker& operator=(const Marker&) = delete;

    bool HasArrived() const { return arrived_; }

    bool nativeEventFilter(const QByteArray& type, void* event, qintptr* /*result*/) override {
        constexpr unsigned kSentByAProgram = 0x80;
        const auto* message = static_cast<const xcb_client_message_event_t*>(event);
        if (type != "xcb_generic_event_t" || (message->response_type & ~kSentByAProgram) != XCB_CLIENT_MESSAGE ||
            message->window != window_)
            return false;
        return arrived_ = true;
    }

  private:
    xcb_connection_t& connection_;
    xcb_window_t window_;
    bool arrived_ = false;
};

/// Null on other platforms.
xcb_connection_t* XConnection() {
    if (QGuiApplication::platformName() != QStringLiteral("xcb")) return nullptr;
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

/// Not all event dispatchers honour ExcludeSocketNotifiers. The data stays in the socket.
class SocketFilter : public QObject {
  public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override { return event->type() == QEvent::SockAct; }
};

/// Defers clicks on close boxes to the program's event loop: their handlers may delete the window in whose handler this
/// object exists.
class CloseDeferral : public QObject {
  public:
    CloseDeferral() { qApp->installEventFilter(this); }
    ~CloseDeferral() override {
        for (const QPointer<QWindow>& window : windows_)
            if (window)
                QMetaObject::invokeMethod(
                    window, [close = window.data()] { close->close(); }, Qt::QueuedConnection);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Close || !watched->isWindowType()) return false;
        windows_.append(static_cast<QWindow*>(watched));
        event->ignore();
        return true;
    }

  private:
    QList<QPointer<QWindow>> windows_;
};

/// Waits until the display server's events so far have been read.
void ReadEvents(xcb_connection_t& connection) {
    const Marker marker(connection);
    const QDeadlineTimer end(kMarkerTimeout);
    // The thread in which Qt reads events hands them over one by one.
    while (!marker.HasArrived() && !end.hasExpired() && xcb_connection_has_error(&connection) == 0) {
        ProcessEventsWithoutInput();
        QThread::yieldCurrentThread();
    }
}

}  // namespace

InputBlock::InputBlock() {
    // A child of the application, so that nothing outlives it.
    auto* filter = qApp->findChild<QObject*>(kName, Qt::FindDirectChildrenOnly);
    if (filter == nullptr) {
        filter = new InputFilter(qApp);
        filter->setObjectName(kName);
    }
    ++g_blocks;
    qApp->installEventFilter(filter);  // the filter installed last is the first to see an event
}

InputBlock::~InputBlock() { --g_blocks; }

bool InputBlock::Exists() { return g_blocks > 0; }

void ProcessEventsWithoutInput() {
    const InputBlock block;
    SocketFilter sockets;
    qApp->installEventFilter(&sockets);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers);
}

void DropPendingInput() {
    if (platform::EndRequested()) platform::CarryOutEndRequest();
    const CloseDeferral closing;
    if (xcb_connection_t* connection = XConnection()) ReadEvents(*connection);
    // What was read last is in Qt's own queue.
    ProcessEventsWithoutInput();
}
