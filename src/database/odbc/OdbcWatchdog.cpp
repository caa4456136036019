#include "database/odbc/OdbcWatchdog.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/EndRequest.h"

namespace database {
namespace {

constexpr auto kBetweenPolls = std::chrono::milliseconds(200);
constexpr auto kTimeToCancel = std::chrono::seconds(2);

}  // namespace

OdbcWatchdog::OdbcWatchdog() = default;

OdbcWatchdog::~OdbcWatchdog() {
    if (!thread_.joinable()) return;
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void OdbcWatchdog::Begin(Clock::duration timeout) {
    driver_.Take();
    timeout_ = timeout;
    try {
        thread_ = std::thread([this] { Watch(); });
    } catch (const std::system_error&) {
        // No thread available: run without a watchdog.
    }
}

OdbcWatchdog::Reason OdbcWatchdog::ShutdownReason() const {
    const std::lock_guard lock(mutex_);
    return reason_;
}

bool OdbcWatchdog::CancelIsRunning() const {
    const std::lock_guard lock(mutex_);
    return lateCancel_ != nullptr && !lateCancel_->WaitForReturn(Clock::duration::zero());
}

// The thread that is blocked in the driver cannot poll for the request.
void OdbcWatchdog::FollowEndRequest(Clock::time_point now) {
    if (calls_ == 0 || endSeen_ || !platform::EndRequested()) return;
    endSeen_ = true;
    deadline_ = std::min(deadline_, now + kTimeToCancel);
    if (cancel_ != nullptr) CallCancel();
}

// On a separate thread: a cancel opens a connection to the server and may block forever.
void OdbcWatchdog::CallCancel() {
    cancelCall_ = std::make_shared<CancelCall>();
    try {
        std::thread([call = cancelCall_, cancel = cancel_, statement = statement_] {
            cancel(statement);
            const std::lock_guard lock(call->mutex);
            call->returned = true;
            call->changed.notify_one();
        }).detach();
    } catch (const std::system_error&) {
        cancelCall_.reset();
    }
}

// ScopedCall need not notify this thread: it wakes at least every `timeout_`, so before a new deadline.
void OdbcWatchdog::Watch() {
    std::unique_lock lock(mutex_);
    while (!stop_) {
        const Clock::time_point now = Clock::now();
        FollowEndRequest(now);
        if (deadline_ <= now) {
            reason_ = endSeen_ ? Reason::EndOfProgram : Reason::Timeout;
            driver_.ShutDown();
            return;
        }
        const bool limited = timeout_ > Clock::duration::zero();
        changed_.wait_until(
            lock,
            std::min(deadline_, now + (limited ? std::min<Clock::duration>(timeout_, kBetweenPolls) : kBetweenPolls)));
    }
}

OdbcWatchdog::ScopedCall::ScopedCall(OdbcWatchdog& watch) : watch_(watch) {
    const std::lock_guard lock(watch_.mutex_);
    outermost_ = watch_.calls_++ == 0;
    if (outermost_ && watch_.timeout_ > Clock::duration::zero() && !watch_.driver_.IsEmpty())
        watch_.deadline_ = Clock::now() + watch_.timeout_;
}

OdbcWatchdog::ScopedCall::~ScopedCall() {
    const std::lock_guard lock(watch_.mutex_);
    --watch_.calls_;
    if (!outermost_) return;
    watch_.deadline_ = Clock::time_point::max();
    watch_.endSeen_ = false;
}

OdbcWatchdog::Cancellable::Cancellable(OdbcWatchdog& watch, Cancel cancel, void* statement) : watch_(watch) {
    const std::lock_guard lock(watch_.mutex_);
    watch_.cancel_ = cancel;
    watch_.statement_ = statement;
}

bool OdbcWatchdog::Cancellable::Finish() {
    std::shared_ptr<CancelCall> call;
    {
        const std::lock_guard lock(watch_.mutex_);
        watch_.cancel_ = nullptr;
        call = std::exchange(watch_.cancelCall_, nullptr);
    }
    if (call == nullptr || call->WaitForReturn(kTimeToCancel)) return true;
    const std::lock_guard lock(watch_.mutex_);
    watch_.lateCancel_ = call;
    // The connection is in use by the cancel: further calls on it must fail.
    watch_.reason_ = Reason::EndOfProgram;
    watch_.driver_.ShutDown();
    return false;
}

}  // namespace database
