#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/NewConnections.h"

namespace database {

/// Watchdog for ODBC calls. Server-side timeouts do not help when the reply is lost, and TCP does not detect a peer
/// that acknowledges data but never answers (a hanging load balancer, say); a driver without a timeout then waits
/// forever. On expiry the driver's sockets are shut down. The driver's sockets are those opened while it connected; if
/// none is found, there is no timeout, but statements can still be cancelled.
///
/// A request to end the program cancels the running statement, and shuts the connection down two seconds later.
class OdbcWatchdog {
  public:
    using Clock = std::chrono::steady_clock;

    /// Must be created before the driver connects.
    OdbcWatchdog();
    ~OdbcWatchdog();
    OdbcWatchdog(const OdbcWatchdog&) = delete;
    OdbcWatchdog& operator=(const OdbcWatchdog&) = delete;

    /// To be called once the driver has connected. Sets the timeout of each call; 0 means none.
    void Begin(Clock::duration patience);
    /// True once a call has timed out and the connection was shut down.
    bool Ended() const;

    /// A call that waits for the server. A nested call counts as part of the outer one.
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

    /// A running statement. When the program is asked to end, `cancel` is called with it on a separate thread.
    class Cancellable {
      public:
        using Cancel = void (*)(void* statement);
        Cancellable(OdbcWatchdog& watch, Cancel cancel, void* statement);
        /// If `cancel` is running, waits up to two seconds for it, since the caller then frees the statement.
        ~Cancellable();
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
    };

    void Watch();
    void FollowEndRequest(Clock::time_point now);
    void CallCancel();

    platform::NewConnections driver_;
    Clock::duration timeout_{};
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    Clock::time_point deadline_ = Clock::time_point::max();  // of the current call
    int turns_ = 0;
    Cancellable::Cancel cancel_ = nullptr;  // of the running statement
    void* statement_ = nullptr;
    std::shared_ptr<CancelCall> call_;
    bool endSeen_ = false, ended_ = false, over_ = false;
    std::thread thread_;
};

}  // namespace database
