#include "faults/FailingMemory.h"

#include <sqlite3.h>

#include <limits>
#include <stdexcept>

namespace FailingMemory {

namespace {

sqlite3_mem_methods real;
int left = 0;
bool failed = false;

bool RunsOut() {
    if (left == 0 || --left > 0) return false;
    return failed = true;
}

void* Allocate(int bytes) { return RunsOut() ? nullptr : real.xMalloc(bytes); }
void* Grow(void* memory, int bytes) { return RunsOut() ? nullptr : real.xRealloc(memory, bytes); }

}  // namespace

void Install() {
    if (real.xMalloc != nullptr) return;
    sqlite3_shutdown();
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &real);
    sqlite3_mem_methods failing = real;
    failing.xMalloc = Allocate;
    failing.xRealloc = Grow;
    const bool taken = sqlite3_config(SQLITE_CONFIG_MALLOC, &failing) == SQLITE_OK &&
                       sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0) == SQLITE_OK;
    if (!taken || sqlite3_initialize() != SQLITE_OK) throw std::runtime_error("the engine takes no other memory");
}

void Arm(int point) {
    left = point;
    failed = false;
}

void Count() { Arm(std::numeric_limits<int>::max()); }
int Counted() { return std::numeric_limits<int>::max() - left; }

Pause::Pause() : left_(left) { left = 0; }
Pause::~Pause() { left = left_; }

bool Disarm() {
    left = 0;
    return failed;
}

}  // namespace FailingMemory
