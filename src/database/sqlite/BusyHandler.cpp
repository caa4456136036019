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

// The engine's own way of waiting sleeps up to 100 ms between two tries. Beside a program that writes one row after
// the other the file is free for less than a millisecond at a time, so a sleeper can miss every gap for five seconds
// and lose its row. Short pauses of changing length find a gap.
// On a crowded machine the time may go by without a turn of ours, so it alone does not count.
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
