#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <sys/syscall.h>
#include <unistd.h>
#include <thread>

#include "platform/RuntimeError.h"
#include "platform/report-host/HostMessages.h"
#include "report-host/DrawnReport.h"
#include "report-host/service/HostListener.h"
#include "report-host/service/HostService.h"
#include "support/AsOtherUser.h"

using namespace Qt::StringLiterals;
using platform::HostAnswer;
using platform::HostVerb;

namespace {
bool g_listenFails = false;
}

/// Replaces the library's function in this test program.
extern "C" int listen(int socket, int backlog) noexcept {
    if (!g_listenFails) return static_cast<int>(::syscall(SYS_listen, socket, backlog));
    errno = ENOMEM;
    return -1;
}

namespace {

/// Hosts in this process, and a client that does not block.
class HostListenerTest : public ::testing::Test {
  protected:
    struct Host {
        explicit Host(const QString& forms)
            : listener(forms), service(listener, forms, [](auto&, auto&) { return std::make_unique<DrawnReport>(1); }) {
            service.Finished = [this] { finished = true; };
        }
        HostListener listener;
        HostService service;
        bool finished = false;
    };

    QString Forms() const { return folder.filePath(u"repfrmdb.accdb"_s); }
    QString Name() const { return platform::HostSocketPath(Forms()); }

    HostAnswer Ask(QLocalSocket& client, const QByteArray& line) {
        client.write(line);
        EXPECT_TRUE(QTest::qWaitFor([&] { return client.canReadLine(); }));
        return platform::ParseAnswer(client.readLine()).value_or(HostAnswer{-1, {}});
    }
    HostAnswer Ask(QLocalSocket& client, HostVerb verb) { return Ask(client, platform::LineOf({.verb = verb})); }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(HostListenerTest, CallerIsAcceptedBeforeAnyEventRuns) {
    const HostListener listener(Forms());
    QLocalSocket client;
    client.connectToServer(Name());
    EXPECT_EQ(client.state(), QLocalSocket::ConnectedState);
}

TEST_F(HostListenerTest, SocketsOfHostsThatWereKilledBeforeTheyHadTheNameAreRemoved) {
    const QString dead = Name() + u".999999999"_s, alive = Name() + u".%1"_s.arg(::getppid());
    for (const QString& path : {dead, alive}) {
        QLocalServer socket;
        ASSERT_TRUE(socket.listen(path));
        // Closing the server would remove the name.
        ASSERT_EQ(::link(path.toLocal8Bit().constData(), (path + u"0000000"_s).toLocal8Bit().constData()), 0);
        socket.close();
        ASSERT_TRUE(QFile::rename(path + u"0000000"_s, path));
    }
    const HostListener listener(Forms());
    EXPECT_FALSE(QFileInfo::exists(dead));
    EXPECT_TRUE(QFileInfo::exists(alive));
    QFile::remove(alive);
}

TEST_F(HostListenerTest, OneFileHasOneNameHoweverItsPathIsWritten) {
    ASSERT_TRUE(QFile(Forms()).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(folder.path(), folder.filePath(u"link"_s)));
    EXPECT_EQ(platform::HostSocketPath(folder.filePath(u"link/./repfrmdb.accdb"_s)), Name());
    EXPECT_NE(platform::HostSocketPath(folder.filePath(u"other.accdb"_s)), Name());
    EXPECT_LE(platform::HostSocketPath(folder.filePath(QString(3000, u'長'))).toUtf8().size(), 100);
}

TEST_F(HostListenerTest, YoungerHostTakesOverAndTheOlderStopsListening) {
    Host older(Forms());
    QLocalSocket before;
    before.connectToServer(Name());
    ASSERT_EQ(Ask(before, HostVerb::Bind).number, 0);
    Host younger(Forms());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !older.listener.IsOpen(); }));
    EXPECT_EQ(Ask(before, HostVerb::Bind).number, 0);  // an existing connection stays usable
    EXPECT_FALSE(older.finished);
    QLocalSocket after;
    after.connectToServer(Name());
    EXPECT_EQ(Ask(after, HostVerb::Quit).number, 0);
    EXPECT_TRUE(younger.finished);
    EXPECT_FALSE(older.finished);
    EXPECT_TRUE(QFile::exists(Name()));
}

TEST_F(HostListenerTest, OlderHostLeavesTheYoungerOnesName) {
    auto older = std::make_unique<HostListener>(Forms());
    const HostListener younger(Forms());
    older.reset();
    EXPECT_TRUE(QFile::exists(Name()));
    QLocalSocket client;
    client.connectToServer(Name());
    EXPECT_EQ(client.state(), QLocalSocket::ConnectedState);
}

TEST_F(HostListenerTest, NameOfAKilledHostIsTakenOver) {
    {
        QFile left(Name());  // socket file without a listener
        ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    }
    const HostListener listener(Forms());
    EXPECT_TRUE(listener.IsOpen());
    QLocalSocket client;
    client.connectToServer(Name());
    EXPECT_EQ(client.state(), QLocalSocket::ConnectedState);
}

TEST_F(HostListenerTest, ClosedListenerLeavesNoName) {
    {
        const HostListener listener(Forms());
        EXPECT_TRUE(QFile::exists(Name()));
    }
    EXPECT_FALSE(QFile::exists(Name()));
}

TEST_F(HostListenerTest, LineThatIsNoRequestIsAnsweredAndTheNextOneServed) {
    Host host(Forms());
    QLocalSocket client;
    client.connectToServer(Name());
    EXPECT_EQ(Ask(client, "{\"verb\":\"Dance\"}\n").description, u"帳票ホストへの要求が正しくありません。"_s);
    EXPECT_EQ(Ask(client, "garbage\n").number, 5);
    EXPECT_EQ(Ask(client, HostVerb::Bind).number, 0);
}

TEST_F(HostListenerTest, CallerWithoutEndIsDropped) {
    Host host(Forms());
    QLocalSocket client;
    client.connectToServer(Name());
    client.write(QByteArray(200000, 'x'));
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return host.finished; }));
}

TEST_F(HostListenerTest, LastCallerGoneFinishesAHostWithoutWindow) {
    Host host(Forms());
    auto first = std::make_unique<QLocalSocket>();
    QLocalSocket second;
    first->connectToServer(Name());
    second.connectToServer(Name());
    ASSERT_EQ(Ask(*first, HostVerb::Bind).number, 0);
    ASSERT_EQ(Ask(second, HostVerb::Bind).number, 0);
    first.reset();
    ASSERT_EQ(Ask(second, HostVerb::Maximize).number, 0);
    EXPECT_FALSE(host.finished);
    second.disconnectFromServer();
    EXPECT_TRUE(QTest::qWaitFor([&] { return host.finished; }));
}

TEST_F(HostListenerTest, CallerOfAnotherUserIsRefusedAndTheNextOneServed) {
    if (!AsOtherUser::IsPossible()) GTEST_SKIP() << "only the superuser can become another user";
    Host host(Forms());
    std::atomic_bool done = false;
    QByteArray answer = "none";
    std::thread other([&] {
        const AsOtherUser nobody;
        QLocalSocket client;
        client.connectToServer(Name());
        client.write(platform::LineOf({.verb = HostVerb::Quit}));
        client.waitForReadyRead(10000);
        answer = client.readAll();
        done = true;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return done.load(); }, 20000));
    other.join();
    EXPECT_EQ(answer, "");
    EXPECT_FALSE(host.finished);
    QLocalSocket own;
    own.connectToServer(Name());
    EXPECT_EQ(Ask(own, HostVerb::Bind).number, 0);
}

TEST_F(HostListenerTest, ListenerStaysClosedWithoutAFolderOfThisUserAlone) {
    // Short enough for the path of a socket, wherever the tests keep their files.
    const QTemporaryDir temporary(u"/tmp/meibo-XXXXXX"_s);
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qunsetenv("XDG_RUNTIME_DIR");
    qputenv("TMPDIR", temporary.path().toUtf8());
    const QString squatted = temporary.filePath(u"youin-meibo-%1"_s.arg(::getuid()));
    ASSERT_TRUE(QDir().mkdir(squatted) && QDir().mkdir(squatted + u"/nobody"_s));
    ASSERT_TRUE(QFile::setPermissions(squatted, QFile::Permissions(0x7777)));
    EXPECT_FALSE(HostListener(Forms()).IsOpen());
    qputenv("XDG_RUNTIME_DIR", runtime);
    qunsetenv("TMPDIR");
}

TEST_F(HostListenerTest, FailedListenLeavesNoSocketFile) {
    g_listenFails = true;
    const bool open = HostListener(Forms()).IsOpen();
    g_listenFails = false;
    EXPECT_FALSE(open);
    const QFileInfo name(Name());
    EXPECT_EQ(name.dir().entryList({name.fileName() + u'*'}, QDir::System | QDir::Files), QStringList());
}
