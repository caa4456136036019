#include "platform/LimitedProcess.h"

#include <gtest/gtest.h>
#include <sys/types.h>
#include <unistd.h>

#include <csignal>

using platform::LimitedProcess;
using namespace Qt::StringLiterals;

namespace {

const QString kShell = u"/bin/sh"_s;
constexpr qsizetype kAll = 1 << 20;

QByteArray OutputOf(const QString& script, const platform::ProcessLimits& limits = {}) {
    LimitedProcess process(kShell, {u"-c"_s, script}, limits);
    return process.Read(kAll);
}

}  // namespace

TEST(LimitedProcesses, LimitsOfTimeMemoryAndCoreDumpsHoldInTheChild) {
#if defined(__SANITIZE_ADDRESS__)
    const QByteArray memory = "unlimited";
#else
    const QByteArray memory = "1048576";
#endif
    EXPECT_EQ(OutputOf(u"ulimit -t; ulimit -c; ulimit -v"_s, {.cpuSeconds = 7}), "7\n0\n" + memory + '\n');
}

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

TEST(LimitedProcesses, SilenceIsATimeout) {
    LimitedProcess process(u"/bin/sleep"_s, {u"600"_s}, {.waitMilliseconds = 200});
    EXPECT_EQ(process.Read(1), QByteArray());
    EXPECT_TRUE(process.TimedOut());
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

TEST(LimitedProcesses, TheProcessEndsWithTheObject) {
    qint64 child = 0;
    {
        LimitedProcess process(kShell, {u"-c"_s, u"printf %8d $$; exec sleep 600"_s}, {});
        child = process.Read(8).trimmed().toLongLong();
        ASSERT_GT(child, 0);
    }
    EXPECT_NE(::kill(static_cast<pid_t>(child), 0), 0);
}
