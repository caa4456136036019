// Linked into the programs of the coverage build. They exit without running the exit handlers that write the counters,
// and tests kill some of them by a signal; without this, code that runs only in whole programs would count as not run.

#include <csignal>

extern "C" {
void __gcov_dump();
[[noreturn]] void __real__Exit(int status);

[[noreturn]] void __wrap__Exit(int status) {
    __gcov_dump();
    __real__Exit(status);
}
}

namespace {

void WriteCountsAndEnd(int signal) {
    __gcov_dump();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

[[maybe_unused]] const auto kBefore = std::signal(SIGTERM, WriteCountsAndEnd);

}  // namespace
