#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <QtTest/QTest>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <thread>

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffQuery.h"
#include "screen/Form.h"
#include "support/FileBytes.h"
#include "support/LinkAnswers.h"
#include "support/MainFormFixture.h"
#include "support/OtherProgram.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPosition = 2;

/// The main form and a second process, which is a fake of the registration program.
class LinkProcesses : public MainFormTest {
  protected:
    LinkProcesses() {
        QFile::link(QStringLiteral(TEST_PROGRAMS "/link-sibling"), InProgramFolder(u"要員台帳更新"_s));
        services.processes.started = [](const RecordingProcesses::Start& start) {
            platform::LocalProcessService().StartProgram(start.path, start.arguments);
        };
        services.clock.now = QDateTime::currentDateTime();
    }

    QString InProgramFolder(const QString& name) const { return installation.ProgramFolder() + u'/' + name; }
    /// Statements that the fake runs on the general database.
    void Order(const QString& sql) const { WriteBytes(InProgramFolder(u"sibling.sql"_s), sql.toUtf8()); }
    /// Makes the fake wait until it is killed.
    void LetSiblingWait() const { WriteBytes(InProgramFolder(u"sibling.waits"_s), QByteArray()); }
    /// Process id of the last fake that has received its start message; 0 if there is none.
    int Sibling() const {
        QFile file(InProgramFolder(u"sibling.pid"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toInt() : 0;
    }
    QList<QStringList> Messages() const { return LinkRows(installation.Configuration()); }

    [[noreturn]] void KillSiblingAndClose();
};

/// Counts the paint events of a window.
class PaintCount : public QObject {
  public:
    explicit PaintCount(QWidget& window) { window.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
    int paints = 0;
};

/// Exit codes of the second process of KilledSibling….
enum Outcome { kClosed = 0, kCloseBoxReturned = 7, kNoEnd = 8, kWaitEnded = 9 };

}  // namespace

/// Runs in a separate process: clicks a row, kills the fake while it is waited for, checks that the window is painted
/// three times after that and presses the close box.
void LinkProcesses::KillSiblingAndClose() {
    [[maybe_unused]] const auto* kept = platform::Services().processes.release();
    platform::Services().processes = std::make_unique<platform::LocalProcessService>();
    Start();
    PaintCount count(MainForm());
    QTimer turn;
    bool killed = false;
    QObject::connect(&turn, &QTimer::timeout, [&] {
        if (!Globals().LinkWaiting || Sibling() == 0) return;
        if (!killed) {
            killed = ::kill(Sibling(), SIGKILL) == 0;
            count.paints = 0;
        }
        MainForm().update();
        if (count.paints < 3) return;
        MainForm().close();
        std::_Exit(kCloseBoxReturned);
    });
    turn.start(5);
    QTimer::singleShot(std::chrono::seconds(60), [] { std::_Exit(kNoEnd); });
    Click(u"担当者名"_s, kPosition);
    std::_Exit(kWaitEnded);
}

TEST_F(LinkProcesses, SiblingKilledInTheMiddleLeavesAPaintedWaitThatTheCloseBoxEndsAtOnceAndTheNextStartWorks) {
    LetSiblingWait();
    EXPECT_EXIT(KillSiblingAndClose(), ::testing::ExitedWithCode(kClosed), "");
    EXPECT_EQ(History().last(), u"終了"_s);
    EXPECT_EQ(Messages(), QList<QStringList>()) << "the sibling took its start message and left no other";
    ASSERT_TRUE(QFile::remove(InProgramFolder(u"sibling.waits"_s)));
    Order(u"UPDATE M担当者 SET 氏名 = '改名　三郎' WHERE コード = '00003'"_s);
    Start();
    Globals().Rows.SetText(StaffText::担当者コード, kPosition, u"00003"_s);
    Click(u"担当者名"_s, kPosition);
    EXPECT_EQ(Item(u"担当者名"_s, kPosition).Text(), u"改名　三郎"_s);
    EXPECT_TRUE(MainForm().Enabled());
}

TEST_F(LinkProcesses, HundredExchangesLeaveNoMessageBehind) {
    constexpr int kExchanges = 100;
    Start();
    const qsizetype history = History().size();
    for (int i = 0; i < kExchanges; ++i) {
        services.clock.now = QDateTime::currentDateTime();
        LaunchStaffRegistration(i % kRowPositions);
        ASSERT_TRUE(MainForm().Enabled()) << i;
    }
    EXPECT_EQ(services.processes.starts.size(), kExchanges);
    EXPECT_EQ(Messages(), QList<QStringList>());
    EXPECT_EQ(History().size(), history + kExchanges) << "one statement of each row, and no error";
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(LinkProcesses, ConfigurationLockedForThreeSecondsOnlyDelaysTheExchange) {
    constexpr auto kLock = std::chrono::seconds(3);
    Start();
    Order(u"UPDATE M担当者 SET 氏名 = '改名　三郎' WHERE コード = '"_s + Item(u"担当者コード"_s, kPosition).Text() +
          u"'"_s);
    OtherProgram other(installation.Configuration().Path());
    const auto lock = [&] {
        other.Run(u"BEGIN EXCLUSIVE"_s);
        return std::thread([&] {
            std::this_thread::sleep_for(kLock);
            other.Run(u"ROLLBACK"_s);
        });
    };
    const auto exchange = [&] {
        services.clock.now = QDateTime::currentDateTime();
        QElapsedTimer timer;
        timer.start();
        Click(u"担当者名"_s, kPosition);
        return std::chrono::milliseconds(timer.elapsed());
    };
    std::thread before = lock();  // the start message has to wait
    EXPECT_GE(exchange(), kLock - std::chrono::milliseconds(100));
    before.join();
    std::thread meanwhile;
    const auto start = services.processes.started;
    services.processes.started = [&](const RecordingProcesses::Start& program) {
        meanwhile = lock();  // the fake and the polling have to wait
        start(program);
    };
    EXPECT_GE(exchange(), kLock - std::chrono::milliseconds(100));
    meanwhile.join();
    EXPECT_EQ(Item(u"担当者名"_s, kPosition).Text(), u"改名　三郎"_s);
    EXPECT_EQ(Messages(), QList<QStringList>());
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_TRUE(History().filter(u"エラー"_s).isEmpty());
}

TEST_F(LinkProcesses, StaffMemberDeletedInTheOtherProcessIsGoneAndTheNumbersKeepTheirGap) {
    Start();
    const QStringList codes = Column(u"担当者コード"_s);
    Order(u"DELETE FROM M担当者 WHERE コード = '"_s + codes[kPosition] + u"'"_s);
    Click(u"担当者名"_s, kPosition);
    EXPECT_EQ(Column(u"行No"_s), (QStringList{u"1"_s, u"2"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s}));
    EXPECT_EQ(Item(u"担当者コード"_s, kPosition).Text(), codes[kPosition + 1]);
}

TEST_F(LinkProcesses, TwoWaitingSiblingsWithDifferentKeysAreTakenForThemselves) {
    Start();
    LetSiblingWait();
    const QString other = u"00199999"_s, now = services.clock.now.toString(u"yyyyMMdd HHmmss"_s);
    AddLinkRow(installation.Configuration(), {.sentAt = now, .kind = u"00"_s, .key = other});
    platform::LocalProcessService().StartProgram(InProgramFolder(u"要員台帳更新.exe"_s), other);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Sibling() != 0; }, 10000));
    const int othersSibling = Sibling();
    ASSERT_TRUE(QFile::remove(InProgramFolder(u"sibling.waits"_s)));
    AddLinkRow(installation.Configuration(), {.sentAt = now, .key = other});
    Click(u"担当者名"_s, kPosition);
    EXPECT_TRUE(MainForm().Enabled());
    ASSERT_EQ(Messages().size(), 1);
    EXPECT_EQ(Messages()[0][5], other) << "the other client's reply waits for the other client";
    EXPECT_EQ(::kill(othersSibling, SIGKILL), 0) << "and its sibling was not answered to";
}

TEST_F(LinkProcesses, ProgramThatMayNotBeExecutedCountsAsMissing) {
    ASSERT_TRUE(QFile::remove(InProgramFolder(u"要員台帳更新"_s)));
    WriteBytes(InProgramFolder(u"要員台帳更新"_s), "#!/bin/sh\n");
    Start();
    Click(u"担当者名"_s, kPosition);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"情報登録プログラムが有りません"_s});
    EXPECT_FALSE(MainForm().Enabled());
    EXPECT_EQ(Messages().size(), 1);
}
