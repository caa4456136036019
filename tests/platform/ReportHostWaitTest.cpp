// What is handled while the report host is busy for minutes or never replies.

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTimer>

#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

#include <unistd.h>

#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "platform/TerminationSignal.h"
#include "platform/report-host/HostMessages.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

/// Fake host that answers the bind request and nothing else. Disconnects when the test says so, or after ten seconds.
class SilentHost {
  public:
    /// `asked` runs in the host's thread when the request to open a report has arrived.
    SilentHost(const QString& forms, std::function<void()> asked) {
        thread_ = std::thread([this, forms, asked = std::move(asked)] { Serve(forms, asked); });
        while (!listens_) std::this_thread::yield();
    }
    ~SilentHost() { thread_.join(); }
    SilentHost(const SilentHost&) = delete;
    SilentHost& operator=(const SilentHost&) = delete;

    void HangUp() { over_ = true; }

  private:
    void Serve(const QString& forms, const std::function<void()>& asked) {
        QLocalServer server;
        server.listen(HostSocketPath(forms));
        listens_ = true;
        if (!server.waitForNewConnection(10000)) return;
        QLocalSocket* caller = server.nextPendingConnection();
        AwaitLine(*caller);
        caller->write("{\"number\":0,\"text\":\"\"}\n");
        caller->waitForBytesWritten(1000);
        AwaitLine(*caller);
        asked();
        for (int look = 0; look < 1000 && !over_; ++look) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    static void AwaitLine(QLocalSocket& caller) {
        while (!caller.canReadLine() && caller.waitForReadyRead(10000)) continue;
        caller.readLine();
    }

    std::atomic_bool listens_ = false, over_ = false;
    std::thread thread_;
};

class ReportHostWaitTest : public ::testing::Test {
  protected:
    QString Forms() const { return folder.filePath(u"repfrmdb.accdb"_s); }
    /// The description of the error that ended the wait.
    QString Open() {
        try {
            LocalReportHostLink().Bind(Forms())->OpenReport(u"要員名簿照会"_s, ReportView::Print);
        } catch (const RuntimeError& error) {
            return error.Description();
        }
        return u"answered"_s;
    }

    const QTemporaryDir folder;
};

const QString kHungUp = u"帳票ホストが途中で終了しました。"_s;

}  // namespace

TEST_F(ReportHostWaitTest, TerminationRequestIsServedWhileAHostDoesNotAnswer) {
    SilentHost host(Forms(), [] { ::kill(::getpid(), SIGTERM); });
    int requests = 0;
    OnTerminationRequest([&] {
        ++requests;
        host.HangUp();
    });
    EXPECT_EQ(Open(), kHungUp);
    EXPECT_EQ(requests, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(requests, 1) << "served a second time";
}

TEST_F(ReportHostWaitTest, NothingElseReachesTheProgramWhileAHostDoesNotAnswer) {
    QLineEdit window;
    window.show();
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(1);
    auto* key = new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s);
    SilentHost host(Forms(), [&] {
        QCoreApplication::postEvent(&window, key);
        ::kill(::getpid(), SIGTERM);
    });
    OnTerminationRequest([&] { host.HangUp(); });
    EXPECT_EQ(Open(), kHungUp);
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(window.text(), u""_s);
}
