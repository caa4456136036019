#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace database {

/// Ends the network connection of a driver that waits for an answer too long. Time-outs of a server reach nobody where
/// what it says gets lost, and a network that takes everything and gives nothing back, as a balancer between them does
/// that hangs, is no fault to TCP: a driver without a time-out of its own waits for ever. Its sockets are found as
/// those that have come while it connected; where none can be found only statements are watched.
///
/// A request to end the program cancels the statement that runs, and two seconds later ends the connection.
class OdbcWatchdog {
  public:
    using Clock = std::chrono::steady_clock;

    /// To be made before the driver connects.
    OdbcWatchdog();
    ~OdbcWatchdog();
    OdbcWatchdog(const OdbcWatchdog&) = delete;
    OdbcWatchdog& operator=(const OdbcWatchdog&) = delete;

    /// To be called when the driver has connected. From then on each turn may last for that time; without any, for
    /// ever.
    void Begin(Clock::duration patience);
    /// The time of a turn was over, and the connection has been ended: whatever waits on it has failed.
    bool Ended() const;

    /// One wait for the server. One inside another counts as part of it.
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

    /// A statement that runs; `cancel` is called with it, on a thread of its own, when the program is asked to end.
    class Cancellable {
      public:
        using Cancel = void (*)(void* statement);
        Cancellable(OdbcWatchdog& watch, Cancel cancel, void* statement);
        /// Waits up to two seconds for a cancel that has been called, since the statement is freed next.
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

    std::set<unsigned long> before_;  // sockets that are none of the driver's
    std::vector<int> sockets_;        // descriptors of our own for the driver's
    Clock::duration timeout_{};
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    Clock::time_point deadline_ = Clock::time_point::max();  // of the turn that runs
    int turns_ = 0;
    Cancellable::Cancel cancel_ = nullptr;  // of the statement that runs
    void* statement_ = nullptr;
    std::shared_ptr<CancelCall> call_;
    bool endSeen_ = false, ended_ = false, over_ = false;
    std::thread thread_;
};

}  // namespace database
