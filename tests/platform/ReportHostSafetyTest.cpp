// Attacks by another user on the socket of a report host.

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "platform/report-host/HostMessages.h"
#include "support/AsOtherUser.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

QString Failure(const QString& forms) {
    try {
        LocalReportHostLink(20).Bind(forms);
    } catch (const RuntimeError& error) {
        return error.Description();
    }
    return u"bound"_s;
}

/// Without XDG_RUNTIME_DIR, with TMPDIR set to a temporary folder.
class HostFolderTest : public ::testing::Test {
  protected:
    HostFolderTest() : name_(QFileInfo(HostSocketPath(Forms())).fileName()) {
        qunsetenv("XDG_RUNTIME_DIR");
        qputenv("TMPDIR", temporary.path().toUtf8());
    }
    ~HostFolderTest() override {
        qputenv("XDG_RUNTIME_DIR", runtime_);
        qunsetenv("TMPDIR");
    }

    static QString Forms() { return u"/suite/report/repfrmdb.accdb"_s; }
    QString Folder() const { return temporary.filePath(u"youin-meibo-%1"_s.arg(::getuid())); }
    static void SetMode(const QString& folder, mode_t mode) { ::chmod(QFile::encodeName(folder).constData(), mode); }
    static bool Make(const QString& folder) {
        const bool made = QDir().mkdir(folder);
        SetMode(folder, 0700);
        return made;
    }
    /// Asserts that a fake host in the folder, or in its subfolder, is never connected to.
    void ExpectRefusal() const {
        QDir().mkdir(Folder() + u"/nobody"_s);
        for (const QString& place : {Folder(), Folder() + u"/nobody"_s}) {
            QLocalServer fake;
            ASSERT_TRUE(fake.listen(place + u'/' + name_)) << fake.errorString().toStdString();
            EXPECT_EQ(Failure(Forms()),
                      u"フォルダ「%1」は自分専用のものではないため、帳票ホストとの連絡に使えません。"_s.arg(Folder()));
            EXPECT_FALSE(fake.waitForNewConnection(0)) << place.toStdString();
        }
    }

    // Short enough for the path of a socket, wherever the tests keep their files.
    const QTemporaryDir temporary{u"/tmp/meibo-XXXXXX"_s};

  private:
    const QByteArray runtime_ = qgetenv("XDG_RUNTIME_DIR");
    const QString name_;
};

}  // namespace

TEST_F(HostFolderTest, IsMadeForThisUserAloneInTheTemporaryFolder) {
    EXPECT_EQ(QFileInfo(HostSocketPath(Forms())).path(), Folder());
    EXPECT_EQ(QFileInfo(Folder()).permissions(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                     QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
    EXPECT_EQ(QFileInfo(HostSocketPath(Forms())).path(), Folder()) << "an existing one is used again";
}

TEST_F(HostFolderTest, OfAnotherUserIsRefusedAndNothingIsSentThere) {
    if (!AsOtherUser::IsPossible()) GTEST_SKIP() << "only the superuser can give a folder away";
    ASSERT_TRUE(Make(Folder()));
    ASSERT_EQ(::chown(QFile::encodeName(Folder()).constData(), AsOtherUser::kNobody, AsOtherUser::kNobody), 0);
    ExpectRefusal();
}

TEST_F(HostFolderTest, ThatIsALinkIsRefusedAndNothingIsSentThere) {
    ASSERT_TRUE(Make(temporary.filePath(u"elsewhere"_s)));
    ASSERT_TRUE(QFile::link(temporary.filePath(u"elsewhere"_s), Folder()));
    ExpectRefusal();
}

TEST_F(HostFolderTest, ThatOthersMayEnterIsRefusedAndNothingIsSentThere) {
    for (const mode_t mode : {0777, 0770, 0701}) {
        QDir(Folder()).removeRecursively();
        ASSERT_TRUE(Make(Folder()));
        SetMode(Folder(), mode);
        ExpectRefusal();
    }
}

TEST_F(HostFolderTest, ThatIsAFileIsRefused) {
    WriteBytes(Folder(), "");
    SetMode(Folder(), 0700);
    EXPECT_EQ(Failure(Forms()),
              u"フォルダ「%1」は自分専用のものではないため、帳票ホストとの連絡に使えません。"_s.arg(Folder()));
}

TEST_F(HostFolderTest, OfTheSessionIsUsedOnlyIfItIsForThisUserAloneAndShortEnough) {
    const auto used = [](const QString& session) {
        qputenv("XDG_RUNTIME_DIR", session.toUtf8());
        return QFileInfo(HostSocketPath(Forms())).path();
    };
    const QString session = temporary.filePath(u"session"_s), longest = temporary.filePath(QString(60, u'x'));
    ASSERT_TRUE(Make(session) && Make(longest));
    EXPECT_EQ(used(session), session);
    EXPECT_EQ(used(longest), Folder());
    SetMode(session, 0755);
    EXPECT_EQ(used(session), Folder());
}

TEST_F(HostFolderTest, ForTemporaryFilesIsUsedOnlyIfItIsAbsoluteAndShortEnough) {
    const QString usual = u"/tmp/youin-meibo-%1"_s.arg(::getuid());
    const bool existed = QFileInfo::exists(usual);
    for (const QByteArray& place : {QByteArray("relative"), temporary.path().toUtf8() + '/' + QByteArray(60, 'x')}) {
        qputenv("TMPDIR", place);
        EXPECT_EQ(QFileInfo(HostSocketPath(Forms())).path(), usual) << place.toStdString();
    }
    if (!existed) QDir().rmdir(usual);
}

TEST(ReportHostPeer, HostOfAnotherUserIsSentNothing) {
    if (!AsOtherUser::IsPossible()) GTEST_SKIP() << "only the superuser can become another user";
    const QTemporaryDir folder;
    const QString forms = folder.filePath(u"repfrmdb.accdb"_s);
    std::atomic_bool listens = false;
    QByteArray received = "no caller";
    std::thread other([&] {
        const AsOtherUser nobody;
        QLocalServer fake;
        EXPECT_TRUE(fake.listen(HostSocketPath(forms))) << fake.errorString().toStdString();
        listens = true;
        if (!fake.waitForNewConnection(10000)) return;
        QLocalSocket* caller = fake.nextPendingConnection();
        caller->waitForReadyRead(10000);
        received = caller->readAll();
    });
    while (!listens) std::this_thread::yield();
    EXPECT_EQ(Failure(forms), u"帳票ホストの接続先は別の利用者のプログラムです。"_s);
    other.join();
    EXPECT_EQ(received, "");
}
