// Part of SqliteHandle.h: WaitForLocks, the busy handler: retry and timeout of statements on a locked file.

#include "database/sqlite/SqliteHandle.h"

#include <QFile>
#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "platform/EndRequest.h"
#include "platform/PlainFile.h"

namespace database {
namespace {

using Clock = std::chrono::steady_clock;

// SQLite's default busy handler sleeps up to 100 ms between tries. A program that writes row after row releases the
// file for less than a millisecond at a time, so that handler can miss every gap for five seconds and fail. Short
// random pauses find a gap. On an overloaded machine the timeout may expire while this process is not scheduled, so a
// minimum number of tries is required as well.
constexpr int kLeastTries = 2000;

// Locks are granted in no order: with many writers on a slow machine one of them may lose every round for longer than
// the timeout. So the timeout starts again while the file changes, up to this total.
constexpr auto kLongestWait = std::chrono::seconds(60);

std::chrono::microseconds NextPause() {
    thread_local std::minstd_rand random(static_cast<unsigned>(Clock::now().time_since_epoch().count()));
    return std::chrono::microseconds(std::uniform_int_distribution<int>(300, 1500)(random));
}

/// The wait of one connection.
class LockWait {
  public:
    LockWait(QString path, std::chrono::milliseconds timeout) : path_(std::move(path)), timeout_(timeout) {}

    /// `tries`: number of tries in the current wait. False if the statement must fail.
    bool MayRetry(int tries) {
        const Clock::time_point now = Clock::now();
        if (tries == 0) {
            deadline_ = now + timeout_;
            lastDeadline_ = now + std::max<Clock::duration>(timeout_, kLongestWait);
            version_ = platform::FileVersionOf(path_);
        }
        return now < deadline_ || tries < kLeastTries || Extend(now);
    }

  private:
    bool Extend(Clock::time_point now) {
        const platform::FileVersion version = platform::FileVersionOf(path_);
        if (version == version_ || now >= lastDeadline_ || platform::EndRequested()) return false;
        version_ = version;
        deadline_ = std::min(now + timeout_, lastDeadline_);
        return true;
    }

    QString path_;
    Clock::duration timeout_;
    Clock::time_point deadline_, lastDeadline_;
    platform::FileVersion version_;
};

int Retry(void* wait, int tries) {
    if (!static_cast<LockWait*>(wait)->MayRetry(tries)) return 0;
    std::this_thread::sleep_for(NextPause());
    return 1;
}

}  // namespace

void WaitForLocks(SqliteDatabase& database, int milliseconds) {
    const char* path = sqlite3_db_filename(database.get(), "main");
    auto wait = std::make_shared<LockWait>(path == nullptr ? QString() : QFile::decodeName(path),
                                           std::chrono::milliseconds(milliseconds));
    sqlite3_busy_handler(database.get(), Retry, wait.get());
    database.get_deleter().lockWait = std::move(wait);
}

}  // namespace database
