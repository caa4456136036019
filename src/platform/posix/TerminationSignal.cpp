#include "platform/TerminationSignal.h"

#include "platform/EndRequest.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <sys/socket.h>
#include <unistd.h>
#include <atomic>
#include <csignal>
#include <utility>

namespace platform {
namespace {

int g_signalEnds[2] = {-1, -1};  // self-pipe; write() is async-signal-safe
std::atomic_bool g_requested = false;

void WriteSignal(int) {
    RequestEnd();
    g_requested = true;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(g_signalEnds[0], &byte, 1);
}

}  // namespace

void OnTerminationRequest(std::function<void()> handler) {
    SetEndHandler(std::move(handler));
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_signalEnds) != 0) return;
    auto* notifier = new QSocketNotifier(g_signalEnds[1], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [] { ServeTerminationRequest(); });
    struct sigaction action = {};
    action.sa_handler = WriteSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) ::sigaction(signal, &action, nullptr);
}

void RequestEndOnSignals() {
    for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, [](int) { RequestEnd(); });
}

void ServeTerminationRequest() {
    char byte = 0;
    if (::recv(g_signalEnds[1], &byte, 1, MSG_DONTWAIT) == 1) CarryOutEndRequest();
}

bool TerminationRequested() { return g_requested; }

}  // namespace platform
