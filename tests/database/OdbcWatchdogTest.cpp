#include "database/odbc/OdbcWatchdog.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <atomic>

#include "platform/EndRequest.h"

using database::OdbcWatchdog;
using namespace std::chrono_literals;

namespace {

constexpr auto kShort = 50ms;
constexpr auto kLong = 1h;

/// A server that accepts connections and never replies.
class OdbcWatchdogTest : public testing::Test {
  protected:
    OdbcWatchdogTest() { silent.listen(QHostAddress::LocalHost); }

    void Connect(QTcpSocket& one) const {
        one.connectToHost(QHostAddress::LocalHost, silent.serverPort());
        ASSERT_TRUE(one.waitForConnected());
    }
    /// Blocks in recv, as a driver without a timeout does. Returns recv's result: 0 once the connection was shut down.
    static ssize_t Receive(const QTcpSocket& one) {
        char sign = 0;
        const int descriptor = ::dup(static_cast<int>(one.socketDescriptor()));
        ::fcntl(descriptor, F_SETFL, 0);
        const ssize_t received = ::recv(descriptor, &sign, 1, 0);
        ::close(descriptor);
        return received;
    }
    static bool IsOpen(const QTcpSocket& one) {
        const char sign = 'x';
        return ::send(static_cast<int>(one.socketDescriptor()), &sign, 1, MSG_NOSIGNAL) == 1;
    }

    void ExpectOpenFor(qint64 milliseconds, const OdbcWatchdog& watch) const {
        QElapsedTimer timer;
        for (timer.start(); timer.elapsed() < milliseconds;)
            ASSERT_EQ(watch.ShutdownReason(), OdbcWatchdog::Reason::None);
        EXPECT_TRUE(IsOpen(socket));
    }

    QTcpServer silent;
    QTcpSocket before, socket;
};

}  // namespace

TEST_F(OdbcWatchdogTest, ATurnThatLastsTooLongEndsTheConnectionAndNoOther) {
    Connect(before);
    OdbcWatchdog watch;
    Connect(socket);
    watch.Begin(kShort);
    QElapsedTimer timer;
    timer.start();
    {
        const OdbcWatchdog::ScopedCall turn(watch);
        EXPECT_EQ(Receive(socket), 0);
    }
    EXPECT_GE(timer.elapsed(), 50);
    EXPECT_EQ(watch.ShutdownReason(), OdbcWatchdog::Reason::Timeout);
    EXPECT_FALSE(IsOpen(socket));
    EXPECT_TRUE(IsOpen(before));
}

TEST_F(OdbcWatchdogTest, EachTurnHasItsOwnTimeAndWhatLiesBetweenHasNone) {
    OdbcWatchdog watch;
    Connect(socket);
    watch.Begin(1s);
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < 1'200;) {
        const OdbcWatchdog::ScopedCall turn(watch);
        EXPECT_TRUE(IsOpen(socket));
    }
    ExpectOpenFor(1'200, watch);
}

TEST_F(OdbcWatchdogTest, ATurnInsideAnotherCountsAsPartOfIt) {
    OdbcWatchdog watch;
    Connect(socket);
    watch.Begin(kShort);
    const OdbcWatchdog::ScopedCall whole(watch);
    QElapsedTimer timer;
    for (timer.start(); watch.ShutdownReason() == OdbcWatchdog::Reason::None && timer.elapsed() < 60'000;)
        const OdbcWatchdog::ScopedCall part(watch);
    EXPECT_EQ(watch.ShutdownReason(), OdbcWatchdog::Reason::Timeout);
}

TEST_F(OdbcWatchdogTest, TheEndWaitsForNoTimeOut) {
    QElapsedTimer timer;
    timer.start();
    {
        OdbcWatchdog watch;
        Connect(socket);
        watch.Begin(kLong);
        const OdbcWatchdog::ScopedCall turn(watch);
        ExpectOpenFor(100, watch);
    }
    EXPECT_LT(timer.elapsed(), 60'000);
    EXPECT_TRUE(IsOpen(socket));
}

TEST_F(OdbcWatchdogTest, ARequestToEndTheProgramCancelsTheStatementThatRuns) {
    std::atomic<int> cancelled = 0;
    OdbcWatchdog watch;
    watch.Begin(0s);
    {
        const OdbcWatchdog::ScopedCall turn(watch);
        const OdbcWatchdog::Cancellable statement(
            watch, [](void* count) { ++*static_cast<std::atomic<int>*>(count); }, &cancelled);
        platform::RequestEnd();
        QElapsedTimer timer;
        for (timer.start(); cancelled == 0 && timer.elapsed() < 60'000;) ::usleep(1000);
    }
    EXPECT_EQ(cancelled, 1);
    platform::CarryOutEndRequest();
}

TEST_F(OdbcWatchdogTest, ARequestToEndTheProgramEndsAConnectionWhereACancelDoesNotHelp) {
    OdbcWatchdog watch;
    Connect(socket);
    watch.Begin(kLong);
    std::atomic<bool> hangs = true;
    {
        const OdbcWatchdog::ScopedCall turn(watch);
        const OdbcWatchdog::Cancellable statement(
            watch, [](void* waits) { static_cast<std::atomic<bool>*>(waits)->wait(true); }, &hangs);
        platform::RequestEnd();
        EXPECT_EQ(Receive(socket), 0);
        EXPECT_EQ(watch.ShutdownReason(), OdbcWatchdog::Reason::EndOfProgram);
        hangs = false;
        hangs.notify_all();
    }
    platform::CarryOutEndRequest();
}

TEST_F(OdbcWatchdogTest, WithoutATimeOutNothingIsEnded) {
    OdbcWatchdog watch;
    Connect(socket);
    watch.Begin(0s);
    const OdbcWatchdog::ScopedCall turn(watch);
    ExpectOpenFor(100, watch);
}
