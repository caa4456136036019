// Part of the programs in the build that counts lines. They leave without the steps in which the counts are written,
// and tests end some of them by a signal: without this all that only whole programs run would count as never run.

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
