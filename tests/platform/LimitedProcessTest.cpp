#include "platform/LimitedProcess.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include <QFile>

using platform::LimitedProcess;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString kShell = u"/bin/sh"_s;
constexpr qsizetype kAll = 1 << 20;

QByteArray OutputOf(const QString& script, const platform::ProcessLimits& limits = {}) {
    LimitedProcess process(kShell, {u"-c"_s, script}, limits);
    return process.Read(kAll);
}

/// False also for a process that has ended and that its parent has not waited for.
bool IsRunning(pid_t process) {
    QFile file(u"/proc/%1/stat"_s.arg(process));
    return file.open(QIODevice::ReadOnly) && !file.readAll().contains(") Z ");
}

}  // namespace

TEST(LimitedProcesses, LimitsOfTimeMemoryAndCoreDumpsHoldInTheChild) {
#if defined(__SANITIZE_ADDRESS__)
    const QByteArray memory = "unlimited";
#else
    const QByteArray memory = "1048576";
#endif
    rlimit core = {};
    ASSERT_EQ(::getrlimit(RLIMIT_CORE, &core), 0);
    const rlimit kept = core;
    core.rlim_cur = core.rlim_max;
    ASSERT_EQ(::setrlimit(RLIMIT_CORE, &core), 0);
    const QByteArray soft = OutputOf(u"ulimit -St; ulimit -Sc; ulimit -Sv"_s, {.cpuSeconds = 7});
    const QByteArray hard = OutputOf(u"ulimit -Ht; ulimit -Hc; ulimit -Hv"_s, {.cpuSeconds = 7});
    ::setrlimit(RLIMIT_CORE, &kept);
    EXPECT_EQ(soft, "7\n0\n" + memory + '\n');
    EXPECT_EQ(hard, "8\n0\n" + memory + '\n') << "a process can't raise its limits";
}

TEST(LimitedProcesses, ItsStandardErrorIsDiscarded) { EXPECT_EQ(OutputOf(u"readlink /proc/$$/fd/2"_s), "/dev/null\n"); }

TEST(LimitedProcesses, NoDescriptorIsInheritedButTheStandardStreams) {
    const int open = ::dup(STDERR_FILENO);
    const QByteArray names = OutputOf(u"ls /proc/$$/fd"_s);
    ::close(open);
    EXPECT_EQ(names, "0\n1\n2\n");
}

TEST(LimitedProcesses, InputAndOutputAreConnected) {
    LimitedProcess process(u"/bin/cat"_s, {}, {});
    process.Write("abc");
    EXPECT_EQ(process.Read(2), "ab");
    process.Write("def");
    EXPECT_EQ(process.Read(4), "cdef");
}

TEST(LimitedProcesses, AnEndBeforeTheOutputIsCompleteIsNoTimeout) {
    LimitedProcess process(kShell, {u"-c"_s, u"printf abc"_s}, {});
    EXPECT_EQ(process.Read(10), "abc");
    EXPECT_FALSE(process.TimedOut());
}

TEST(LimitedProcesses, AnEndSomeTimeAfterTheInputWasClosedIsNoTimeout) {
    LimitedProcess process(kShell, {u"-c"_s, u"exec <&-; sleep 0.3; exit 3"_s}, {});
    process.Write(QByteArray(1 << 20, 'x'));
    EXPECT_EQ(process.Read(1), "");
    EXPECT_FALSE(process.TimedOut());
}

TEST(LimitedProcesses, ClosedOutputOfAProcessThatGoesOnIsATimeout) {
    LimitedProcess process(kShell, {u"-c"_s, u"exec >&-; exec sleep 600"_s}, {.waitMilliseconds = 500});
    EXPECT_EQ(process.Read(1), "");
    EXPECT_TRUE(process.TimedOut());
}

TEST(LimitedProcesses, SilenceIsATimeout) {
    LimitedProcess process(u"/bin/sleep"_s, {u"600"_s}, {.waitMilliseconds = 200});
    EXPECT_EQ(process.Read(1), QByteArray());
    EXPECT_TRUE(process.TimedOut());
}

TEST(LimitedProcesses, ASilentProcessIsKilledBeforeItsObjectGoes) {
    LimitedProcess process(kShell, {u"-c"_s, u"printf %8d $$; exec sleep 600"_s}, {.waitMilliseconds = 500});
    const auto child = process.Read(8).trimmed().toInt();
    ASSERT_GT(child, 0);
    EXPECT_EQ(process.Read(1), QByteArray());
    const auto latest = std::chrono::steady_clock::now() + 10s;
    while (IsRunning(child) && std::chrono::steady_clock::now() < latest) std::this_thread::yield();
    EXPECT_FALSE(IsRunning(child));
}

TEST(LimitedProcesses, AllWaitingCountsForTheTimeout) {
    LimitedProcess process(kShell, {u"-c"_s, u"while :; do echo; sleep 0.1; done"_s}, {.waitMilliseconds = 1000});
    EXPECT_LT(process.Read(1000).size(), 15);
    EXPECT_TRUE(process.TimedOut());
}

TEST(LimitedProcesses, ProcessorTimeIsLimited) {
    LimitedProcess process(kShell, {u"-c"_s, u"while :; do :; done"_s}, {.cpuSeconds = 1});
    EXPECT_EQ(process.Read(1), QByteArray());
    EXPECT_TRUE(process.TimedOut());
}

TEST(LimitedProcesses, IgnoringTheSignalOfTheLimitIsATimeoutToo) {
    LimitedProcess process(kShell, {u"-c"_s, u"trap '' XCPU; while :; do :; done"_s}, {.cpuSeconds = 1});
    EXPECT_EQ(process.Read(1), QByteArray());
    EXPECT_TRUE(process.TimedOut());
}

TEST(LimitedProcesses, BeingKilledIsNoTimeout) {
    LimitedProcess process(kShell, {u"-c"_s, u"kill -KILL $$"_s}, {});
    EXPECT_EQ(process.Read(1), QByteArray());
    EXPECT_FALSE(process.TimedOut());
}

TEST(LimitedProcesses, WaitingForInputToBeTakenCountsForTheTimeout) {
    LimitedProcess process(kShell, {u"-c"_s, u"while head -c 65536 > /dev/null; do sleep 0.1; done"_s},
                           {.waitMilliseconds = 1000});
    process.Write(QByteArray(4 << 20, 'x'));
    EXPECT_TRUE(process.TimedOut());
}

TEST(LimitedProcesses, AProgramThatIsMissingDoesNotStart) {
    LimitedProcess process(u"/nowhere"_s, {}, {});
    EXPECT_FALSE(process.Started());
    EXPECT_EQ(process.Read(1), QByteArray());
    EXPECT_FALSE(process.TimedOut());
}

TEST(LimitedProcesses, TheProcessEndsAtOnceWithTheObject) {
    pid_t child = 0;
    const auto begin = std::chrono::steady_clock::now();
    {
        LimitedProcess process(kShell, {u"-c"_s, u"printf %8d $$; exec sleep 600"_s}, {});
        child = process.Read(8).trimmed().toInt();
        ASSERT_GT(child, 0);
    }
    EXPECT_NE(::kill(child, 0), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 4s) << "it isn't waited for before it is killed";
}

TEST(LimitedProcesses, TheProcessEndsWithAKilledParent) {
    ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t parent = ::fork();
    if (parent == 0) {
        LimitedProcess process(kShell, {u"-c"_s, u"printf %8d $$; exec sleep 20"_s}, {});
        const int child = process.Read(8).trimmed().toInt();
        [[maybe_unused]] const ssize_t written = ::write(ends[1], &child, sizeof child);
        ::raise(SIGKILL);
    }
    int child = 0, status = 0;
    ASSERT_EQ(::read(ends[0], &child, sizeof child), static_cast<ssize_t>(sizeof child));
    ASSERT_GT(child, 0);
    ASSERT_EQ(::waitpid(parent, &status, 0), parent);
    ASSERT_EQ(::waitpid(child, &status, __WALL), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    ::prctl(PR_SET_CHILD_SUBREAPER, 0);
    ::close(ends[0]);
    ::close(ends[1]);
}
