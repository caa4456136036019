#include "support/VirtualScreen.h"

#include <QDeadlineTimer>
#include <QThread>
#include <algorithm>

#include <sys/prctl.h>
#include <xcb/xcb.h>
#include <csignal>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {
constexpr int kTimeout = 60000;  // milliseconds

xcb_atom_t AtomOf(xcb_connection_t* connection, const QByteArray& name) {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData());
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    const xcb_atom_t atom = reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
    std::free(reply);
    return atom;
}

/// Sends a window what a window manager sends; true when the server has processed it.
bool SendProtocol(xcb_connection_t* connection, const QString& window, const QByteArray& protocol) {
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window.toUInt();
    message.type = AtomOf(connection, "WM_PROTOCOLS");
    message.data.data32[0] = AtomOf(connection, protocol);
    xcb_send_event(connection, 0, message.window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    return xcb_flush(connection) > 0 && AtomOf(connection, "WM_PROTOCOLS") == message.type;
}

/// Waits for a message to the root window.
bool AwaitMessage(xcb_connection_t* connection) {
    const QDeadlineTimer end(kTimeout);
    for (bool found = false; !end.hasExpired(); QThread::msleep(5)) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(connection)) {
            found = found || (event->response_type & 0x7f) == XCB_CLIENT_MESSAGE;
            std::free(event);
        }
        if (found) return true;
    }
    return false;
}
}  // namespace

VirtualScreen::VirtualScreen(const QSize& size) {
    server_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    server_.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s, u"-screen"_s, u"0"_s,
                              u"%1x%2x24"_s.arg(size.width()).arg(size.height())});
    // The server writes the number of its display when it is ready.
    while (!server_.canReadLine())
        if (!server_.waitForReadyRead(kTimeout)) return;
    display_ = u':' + QString::fromLatin1(server_.readLine()).trimmed();
}

VirtualScreen::~VirtualScreen() {
    if (desktop_ != nullptr) xcb_disconnect(desktop_);
    server_.terminate();
    server_.waitForFinished();
}

void VirtualScreen::SetDpi(int dpi) {
    if (desktop_ == nullptr) desktop_ = xcb_connect(display_.toLatin1().constData(), nullptr);
    const QByteArray resources = "Xft.dpi:\t" + QByteArray::number(dpi) + '\n';
    xcb_change_property(desktop_, XCB_PROP_MODE_REPLACE, xcb_setup_roots_iterator(xcb_get_setup(desktop_)).data->root,
                        XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 8, static_cast<uint32_t>(resources.size()),
                        resources.constData());
    AtomOf(desktop_, "WM_PROTOCOLS");  // a round trip: the server has the property
}

bool VirtualScreen::Work(const QStringList& arguments, QString* output) const {
    QProcess hand;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, display_);
    hand.setProcessEnvironment(environment);
    hand.start(u"xdotool"_s, arguments);
    const bool done =
        hand.waitForFinished(kTimeout) && hand.exitStatus() == QProcess::NormalExit && hand.exitCode() == 0;
    if (output != nullptr) *output = QString::fromLatin1(hand.readAllStandardOutput());
    return done;
}

QStringList VirtualScreen::Windows() const {
    QString found;
    Work({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"."_s}, &found);
    return found.split(u'\n', Qt::SkipEmptyParts);
}

QStringList VirtualScreen::Await(int windows) const {
    const QDeadlineTimer end(kTimeout);
    QStringList found;
    for (; found.size() != windows; found = Windows()) {
        if (end.hasExpired()) return {};
        QThread::msleep(20);
    }
    return found;
}

QString VirtualScreen::NewestOf(int windows) const {
    const QStringList found = Await(windows);
    // Window ids of a program are in the order of creation. Those of a later program may be lower.
    const auto newest = std::max_element(
        found.begin(), found.end(), [](const QString& a, const QString& b) { return a.toLongLong() < b.toLongLong(); });
    return newest == found.end() ? QString() : *newest;
}

QString VirtualScreen::OtherThan(const QString& window) const {
    QStringList found = Await(2);
    found.removeOne(window);
    return found.value(0);
}

QRect VirtualScreen::PlaceOf(const QString& window) const {
    QString text;
    Work({u"getwindowgeometry"_s, u"--shell"_s, window}, &text);
    const auto valueOf = [&text](const QString& name) {
        for (const QString& line : text.split(u'\n'))
            if (line.startsWith(name)) return line.sliced(name.size()).toInt();
        return 0;
    };
    return {valueOf(u"X="_s), valueOf(u"Y="_s), valueOf(u"WIDTH="_s), valueOf(u"HEIGHT="_s)};
}

QImage VirtualScreen::Picture(const QString& window) const {
    const QSize size = SizeOf(window);
    xcb_connection_t* connection = xcb_connect(display_.toLatin1().constData(), nullptr);
    const auto cookie = xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window.toUInt(), 0, 0,
                                      static_cast<uint16_t>(size.width()), static_cast<uint16_t>(size.height()), ~0U);
    xcb_get_image_reply_t* reply = xcb_get_image_reply(connection, cookie, nullptr);
    QImage picture;
    if (reply != nullptr)
        picture = QImage(xcb_get_image_data(reply), size.width(), size.height(), QImage::Format_RGB32).copy();
    std::free(reply);
    xcb_disconnect(connection);
    return picture;
}

QByteArray VirtualScreen::Property(const QString& window, const QByteArray& name) const {
    constexpr uint32_t kWords = 1024;
    xcb_connection_t* connection = xcb_connect(display_.toLatin1().constData(), nullptr);
    const auto cookie = xcb_get_property(connection, 0, window.toUInt(), AtomOf(connection, name),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, kWords);
    xcb_get_property_reply_t* reply = xcb_get_property_reply(connection, cookie, nullptr);
    QByteArray value;
    if (reply != nullptr)
        value =
            QByteArray(static_cast<const char*>(xcb_get_property_value(reply)), xcb_get_property_value_length(reply));
    std::free(reply);
    xcb_disconnect(connection);
    return value;
}

QByteArray VirtualScreen::StartEnded(const std::function<void()>& start) const {
    xcb_connection_t* connection = xcb_connect(display_.toLatin1().constData(), nullptr);
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection, xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root,
                                 XCB_CW_EVENT_MASK, &mask);
    const xcb_atom_t begin = AtomOf(connection, "_NET_STARTUP_INFO_BEGIN"),
                     more = AtomOf(connection, "_NET_STARTUP_INFO");
    start();
    QByteArray text;
    // Messages of 20 bytes each; the last one contains a NUL.
    for (const QDeadlineTimer end(kTimeout); !text.contains('\0') && !end.hasExpired(); QThread::msleep(10)) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(connection)) {
            const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event);
            if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE &&
                (message->type == begin || message->type == more))
                text += QByteArray(reinterpret_cast<const char*>(message->data.data8), sizeof message->data.data8);
            std::free(event);
        }
    }
    xcb_disconnect(connection);
    return text.constData();
}

// Retried until the focus is set: a window that is being remapped loses it, and no window manager restores it.
bool VirtualScreen::Focus(const QString& window) const {
    const QDeadlineTimer end(kTimeout);
    QString focused;
    while (!end.hasExpired()) {
        Work({u"windowfocus"_s, window});
        if (Work({u"getwindowfocus"_s, u"-f"_s}, &focused) && focused.trimmed() == window) return true;
        QThread::msleep(20);
    }
    return false;
}

bool VirtualScreen::Press(const QString& window, const QStringList& keys) const {
    return Focus(window) && Work(QStringList{u"key"_s} + keys);
}

bool VirtualScreen::Type(const QString& window, const QString& text) const {
    return Focus(window) && Work({u"type"_s, text});
}

bool VirtualScreen::Click(const QString& window, const QPoint& place) const {
    return Focus(window) && Work({u"mousemove"_s, u"--window"_s, window, QString::number(place.x()),
                                  QString::number(place.y()), u"click"_s, u"1"_s});
}

bool VirtualScreen::MoveAndResize(const QString& window, const QPoint& place, const QSize& size) const {
    return Work({u"windowmove"_s, window, QString::number(place.x()), QString::number(place.y())}) &&
           Work({u"windowsize"_s, window, QString::number(size.width()), QString::number(size.height())});
}

bool VirtualScreen::BreakConnection(const QString& window) const {
    xcb_connection_t* connection = xcb_connect(display_.toLatin1().constData(), nullptr);
    xcb_generic_error_t* error = xcb_request_check(connection, xcb_kill_client_checked(connection, window.toUInt()));
    const bool broken = error == nullptr && xcb_connection_has_error(connection) == 0;
    std::free(error);
    xcb_disconnect(connection);
    return broken;
}

bool VirtualScreen::PressCloseBox(const QString& window) const {
    xcb_connection_t* connection = xcb_connect(display_.toLatin1().constData(), nullptr);
    const bool sent = SendProtocol(connection, window, "WM_DELETE_WINDOW");
    xcb_disconnect(connection);
    return sent;
}

// A program answers a window manager's ping in the order of its events. Those that were read together with the first
// one are handled before the second one is read.
bool VirtualScreen::AwaitIdle(const QString& window) const {
    xcb_connection_t* connection = xcb_connect(display_.toLatin1().constData(), nullptr);
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, screen->root, XCB_CW_EVENT_MASK, &mask);
    bool answered = true;
    for (int i = 0; i < 2 && answered; ++i)
        answered = SendProtocol(connection, window, "_NET_WM_PING") && AwaitMessage(connection);
    xcb_disconnect(connection);
    return answered;
}
