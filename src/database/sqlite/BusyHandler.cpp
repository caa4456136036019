#include "database/sqlite/BusyHandler.h"

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <random>
#include <thread>

namespace database {
namespace {

using Clock = std::chrono::steady_clock;

std::chrono::microseconds NextPause() {
    thread_local std::minstd_rand random(static_cast<unsigned>(Clock::now().time_since_epoch().count()));
    return std::chrono::microseconds(std::uniform_int_distribution<int>(300, 1500)(random));
}

// SQLite's default busy handler sleeps up to 100 ms between tries. A program that writes row after row releases the
// file for less than a millisecond at a time, so that handler can miss every gap for five seconds and fail. Short
// random pauses find a gap. On an overloaded machine the timeout may expire while this process is not scheduled, so a
// minimum number of tries is required as well.
constexpr int kLeastTries = 2000;

int Retry(void* waitMilliseconds, int tries) {
    thread_local Clock::time_point deadline;
    if (tries == 0)
        deadline = Clock::now() + std::chrono::milliseconds(reinterpret_cast<std::intptr_t>(waitMilliseconds));
    if (Clock::now() >= deadline && tries >= kLeastTries) return 0;
    std::this_thread::sleep_for(NextPause());
    return 1;
}

}  // namespace

void WaitForLocks(sqlite3* database, int milliseconds) noexcept {
    sqlite3_busy_handler(database, Retry, reinterpret_cast<void*>(static_cast<std::intptr_t>(milliseconds)));
}

}  // namespace database
