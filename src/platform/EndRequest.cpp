#include "platform/EndRequest.h"

#include <QGuiApplication>
#include <QWindow>

#include <atomic>
#include <chrono>
#include <utility>

#include "platform/CloseBox.h"

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr Clock::duration kTimeToEnd = std::chrono::seconds(5);

std::atomic<bool> g_requested = false;
std::atomic<Clock::rep> g_endingUntil = 0;  // 0 while the program is not ending
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler writes it");

std::function<void()>& Handler() {
    static std::function<void()> handler;
    return handler;
}

/// The window whose close box was clicked; null if it has no close box or a modal window blocks its input.
QWindow* ClosingWindow() {
    const quintptr id = PendingCloseBox();
    if (id == 0) return nullptr;
    const QWindow* modal = QGuiApplication::modalWindow();
    for (QWindow* window : QGuiApplication::topLevelWindows())
        if (window->handle() != nullptr && window->winId() == id && (modal == nullptr || modal == window) &&
            window->flags().testFlag(Qt::WindowCloseButtonHint))
            return window;
    return nullptr;
}

}  // namespace

void RequestEnd() noexcept { g_requested = true; }

bool EndRequested() {
    if (const Clock::rep until = g_endingUntil; until != 0) return Clock::now().time_since_epoch().count() > until;
    return g_requested || ClosingWindow() != nullptr;
}

void SetEndHandler(std::function<void()> handler) { Handler() = std::move(handler); }

void CarryOutEndRequest() {
    if (g_endingUntil != 0) return;
    if (g_requested) {
        const Ending ending;
        if (Handler()) Handler()();
        g_requested = false;
        return;
    }
    QWindow* window = ClosingWindow();
    if (window == nullptr || window->modality() != Qt::NonModal) return;
    const Ending ending;
    window->close();
    ForgetCloseBox();
}

Ending::Ending() : outermost_(g_endingUntil == 0) {
    if (outermost_) g_endingUntil = (Clock::now() + kTimeToEnd).time_since_epoch().count();
}

Ending::~Ending() {
    if (outermost_) g_endingUntil = 0;
}

}  // namespace platform
