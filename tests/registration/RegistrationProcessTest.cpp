// The real program in a separate process.

#include <QFile>
#include <QProcess>
#include <QTest>

#include "registration/RegistrationFixture.h"
#include "support/OtherProgram.h"
#include "support/VirtualScreen.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

namespace {

class RegistrationProcess : public RegistrationTest {
  protected:
    RegistrationProcess() {
        program = installation.ProgramFolder() + u"/要員台帳更新"_s;
        EXPECT_TRUE(QFile::link(QStringLiteral(SUITE_PROGRAMS "/要員台帳更新"), program));
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        RunOn(u"offscreen"_s);
    }
    ~RegistrationProcess() override {
        if (process.state() == QProcess::NotRunning) return;
        process.kill();
        process.waitForFinished();
    }

    void RunOn(const QString& platformName, const QString& display = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, platformName);
        if (!display.isEmpty()) environment.insert(u"DISPLAY"_s, display);
        process.setProcessEnvironment(environment);
    }
    /// Starts the program with a key, waits until `there` and asks it to exit.
    void RunUntil(const QString& key, const std::function<bool()>& there) {
        LeaveStartMessage(key, TimeStamp(QDateTime::currentDateTime()));
        process.start(program, {key});
        ASSERT_TRUE(QTest::qWaitFor(there, 30000));
        process.terminate();
        ASSERT_TRUE(process.waitForFinished(30000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
    }
    void ExpectAnswer(const QString& key) const {
        ASSERT_EQ(Messages().size(), 1);
        EXPECT_EQ(Messages().first().mid(4, 2), (QStringList{u"99"_s, key}));
        EXPECT_EQ(installation.HistoryTexts().last(), u"終了"_s);
    }

    /// Resident memory of the running program in MiB; 0 if it has ended.
    double ResidentMiB() const {
        QFile rollup(u"/proc/%1/smaps_rollup"_s.arg(process.processId()));
        if (!rollup.open(QIODevice::ReadOnly)) return 0;
        const QByteArray text = rollup.readAll();
        const qsizetype at = text.indexOf("\nRss:");
        return at < 0 ? 0 : text.mid(at + 5, 24).trimmed().split(' ').first().toDouble() / 1024;
    }

    QString program;
    QProcess process;
};

}  // namespace

TEST_F(RegistrationProcess, ATerminationRequestEndsTheRunAndAnswersTheStarter) {
    RunUntil(u"00000007"_s, [this] { return ViewKinds() == QStringList{u"0"_s}; });
    ExpectAnswer(u"00000007"_s);
}

TEST_F(RegistrationProcess, ATerminationRequestDuringAMessageBoxAnswersTheStarterToo) {
    RunUntil(u"00099999"_s,
             [this] { return installation.HistoryTexts().contains(u"開始 00099999"_s) && Messages().isEmpty(); });
    ExpectAnswer(u"00099999"_s);
}

TEST_F(RegistrationProcess, ARefusedStartIsShownAndAnswersTheStarterOnceTheBoxIsGone) {
    installation.General().Execute(u"DROP TABLE Mユーザ"_s);
    const VirtualScreen screen;
    ASSERT_FALSE(screen.Display().isEmpty());
    RunOn(u"xcb"_s, screen.Display());
    LeaveStartMessage(u"00000007"_s, TimeStamp(QDateTime::currentDateTime()));
    process.start(program, {u"00000007"_s});
    ASSERT_TRUE(screen.Press(screen.NewestOf(1), {u"Return"_s}));
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    ExpectAnswer(u"00000007"_s);
}

#if !defined(__SANITIZE_ADDRESS__)  // shadow memory and freed blocks in quarantine count as resident
TEST_F(RegistrationProcess, NeedsLessThanSixtyMebibytesAfterTheStart) {
    const VirtualScreen screen;
    ASSERT_FALSE(screen.Display().isEmpty());
    RunOn(u"xcb"_s, screen.Display());
    double resident = 0;
    RunUntil(u"00000007"_s, [&] {
        if (ViewKinds() != QStringList{u"0"_s} || screen.NewestOf(1).isEmpty()) return false;
        resident = ResidentMiB();
        return true;
    });
    EXPECT_GT(resident, 0);
    EXPECT_LT(resident, 60);
}
#endif

// Enter on the box would discard the clerk's input, or close a message that the clerk has not read.
TEST_F(RegistrationProcess, KeysThatArriveDuringASaveDoNotAnswerItsQuestion) {
    const VirtualScreen screen;
    ASSERT_FALSE(screen.Display().isEmpty());
    RunOn(u"xcb"_s, screen.Display());
    LeaveStartMessage(u"00000007"_s, TimeStamp(QDateTime::currentDateTime()));
    process.start(program, {u"00000007"_s});
    const QString window = screen.NewestOf(1);
    OtherProgram other(installation.General().Path());
    other.Run(u"BEGIN IMMEDIATE; UPDATE M担当者 SET 電話 = '06-5555-0200' WHERE コード = '00007'"_s);
    // Backwards from the first item: 終了, 削除, 保存.
    ASSERT_TRUE(screen.Press(window, {u"ctrl+a"_s}) && screen.Type(window, u"Tanaka Ichiro"_s) &&
                screen.Press(window, {u"shift+Tab"_s, u"shift+Tab"_s, u"shift+Tab"_s, u"space"_s}) &&
                screen.Press(window, {u"Return"_s, u"y"_s, u"space"_s, u"Escape"_s, u"Return"_s}));
    other.Run(u"COMMIT"_s);
    const QString question = screen.NewestOf(2);
    ASSERT_TRUE(screen.AwaitIdle(window));
    EXPECT_EQ(screen.NewestOf(2), question);
    EXPECT_EQ(Stored(u"氏名"_s), u"山田　太郎"_s);
    // The box closes and the window stays: the keys had no other effect either.
    ASSERT_TRUE(screen.Press(question, {u"Escape"_s}));
    EXPECT_EQ(screen.NewestOf(1), window);
    ASSERT_TRUE(screen.AwaitIdle(window));
    EXPECT_EQ(screen.NewestOf(1), window);
}
