#include "platform/EndRequest.h"

#include <atomic>
#include <chrono>
#include <utility>

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr Clock::duration kTimeToEnd = std::chrono::seconds(5);

std::atomic<bool> g_requested = false;
std::atomic<EndSource*> g_source = nullptr;
std::atomic<Clock::rep> g_endingUntil = 0;  // 0 while the program is not ending
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler writes it");

std::function<void()>& Handler() {
    static std::function<void()> handler;
    return handler;
}

}  // namespace

void RequestEnd() noexcept { g_requested = true; }

bool EndRequested() {
    if (const Clock::rep until = g_endingUntil; until != 0) return Clock::now().time_since_epoch().count() > until;
    const EndSource* source = g_source;
    return g_requested || (source != nullptr && source->Pending());
}

void SetEndHandler(std::function<void()> handler) { Handler() = std::move(handler); }

void SetEndSource(EndSource* source) { g_source = source; }

void CarryOutEndRequest() {
    if (g_endingUntil != 0) return;
    if (g_requested) {
        const Ending ending;
        if (Handler()) Handler()();
        g_requested = false;
        return;
    }
    if (EndSource* source = g_source; source != nullptr) source->CarryOut();
}

Ending::Ending() : outermost_(g_endingUntil == 0) {
    if (outermost_) g_endingUntil = (Clock::now() + kTimeToEnd).time_since_epoch().count();
}

Ending::~Ending() {
    if (outermost_) g_endingUntil = 0;
}

}  // namespace platform
