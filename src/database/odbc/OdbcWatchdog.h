#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/NewConnections.h"

namespace database {

/// Watchdog for ODBC calls, on a separate thread. Server-side timeouts do not help when the reply is lost, and TCP does
/// not detect a peer that acknowledges data but never answers (a hanging load balancer, for example); a driver without
/// a timeout then waits forever. On expiry the driver's sockets are shut down. The driver's sockets are those opened
/// while it connected; if none is found, there is no timeout, but statements can still be cancelled.
///
/// A request to end the program (EndRequested) cancels the running statement, and shuts the connection down two seconds
/// later.
class OdbcWatchdog {
  public:
    using Clock = std::chrono::steady_clock;

    /// Must be created before the driver connects.
    OdbcWatchdog();
    ~OdbcWatchdog();
    OdbcWatchdog(const OdbcWatchdog&) = delete;
    OdbcWatchdog& operator=(const OdbcWatchdog&) = delete;

    /// To be called once, when the driver has connected. Sets the timeout of each call; 0 means none.
    void Begin(Clock::duration timeout);
    /// Why the connection was shut down.
    enum class Reason { None, Timeout, EndOfProgram };
    Reason ShutdownReason() const;
    /// True if a `cancel` call (Cancellable) for a finished statement has not returned: it still uses the connection.
    bool CancelIsRunning() const;

    /// While it exists, a call waits for the server, and the timeout runs. A nested object counts as part of the outer
    /// one.
    class ScopedCall {
      public:
        explicit ScopedCall(OdbcWatchdog& watch);
        ~ScopedCall();
        ScopedCall(const ScopedCall&) = delete;
        ScopedCall& operator=(const ScopedCall&) = delete;

      private:
        OdbcWatchdog& watch_;
        bool outermost_;
    };

    /// While it exists, a statement is running. When the program is asked to end, `cancel` is called with `statement`
    /// on another thread. One object at a time.
    class Cancellable {
      public:
        using Cancel = void (*)(void* statement);
        Cancellable(OdbcWatchdog& watch, Cancel cancel, void* statement);
        ~Cancellable() { Finish(); }
        /// If `cancel` is running, waits up to two seconds for it. False if it does not return in time: the statement
        /// must not be freed then.
        bool Finish();
        Cancellable(const Cancellable&) = delete;
        Cancellable& operator=(const Cancellable&) = delete;

      private:
        OdbcWatchdog& watch_;
    };

  private:
    struct CancelCall {
        std::mutex mutex;
        std::condition_variable changed;
        bool returned = false;

        bool WaitForReturn(Clock::duration timeout) {
            std::unique_lock lock(mutex);
            return changed.wait_for(lock, timeout, [this] { return returned; });
        }
    };

    void Watch();
    void FollowEndRequest(Clock::time_point now);
    void CallCancel();

    platform::NewConnections driver_;
    Clock::duration timeout_{};
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    Clock::time_point deadline_ = Clock::time_point::max();  // of the current call
    int calls_ = 0;                                          // nested
    Cancellable::Cancel cancel_ = nullptr;                   // of the running statement
    void* statement_ = nullptr;
    std::shared_ptr<CancelCall> cancelCall_;
    std::shared_ptr<CancelCall> lateCancel_;  // did not return before its statement was finished
    Reason reason_ = Reason::None;
    bool endSeen_ = false, stop_ = false;
    std::thread thread_;
};

}  // namespace database
