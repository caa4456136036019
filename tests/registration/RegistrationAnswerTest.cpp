// The answer to the starting program when it cannot be written at once.

#include "registration/RegistrationFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QString kKey = u"00000007"_s;
const QString kNotAnswered =
    u"起動元のプログラムに終了を通知できません。ディスクの空きとコンピューターの時計を確かめてください。"
    "この画面を開いている間は通知を繰り返し、通知できたときに画面を閉じます。"_s;

class RegistrationAnswer : public RegistrationTest {
  protected:
    RegistrationAnswer() {
        LeaveStartMessage(kKey);
        Start();
        Enter(u"氏名"_s, u"田中"_s);
    }
    void RefuseAnswers() const {
        installation.Configuration().Execute(
            u"CREATE TRIGGER 満杯 BEFORE INSERT ON プログラム連携情報 BEGIN SELECT RAISE(ABORT, 'full'); END"_s);
    }
    void TakeAnswers() const { installation.Configuration().Execute(u"DROP TRIGGER 満杯"_s); }
    void ExpectWaiting() const {
        EXPECT_EQ(services.dialogs.Texts(), QStringList{kNotAnswered});
        EXPECT_FALSE(HasEnded());
        EXPECT_TRUE(Window().isVisible());
        EXPECT_EQ(Messages(), QList<QStringList>());
    }
};

}  // namespace

TEST_F(RegistrationAnswer, ASaveWhoseEndMessageCannotBeWrittenTellsTheClerkAndTriesAgain) {
    RefuseAnswers();
    Click(u"btn_保存"_s);
    ExpectWaiting();
    EXPECT_EQ(Stored(u"氏名"_s), u"田中"_s);
    const auto failures = [this] { return installation.HistoryTexts().filter(u"エラー "_s).size(); };
    const qsizetype first = failures();
    ASSERT_TRUE(QTest::qWaitFor([&] { return failures() > first; }, 30000)) << "each try is recorded";
    ExpectWaiting();
    TakeAnswers();
    EXPECT_TRUE(QTest::qWaitFor([this] { return HasEnded(); }, 30000));
    EXPECT_EQ(Messages(), EndMessage(kKey));
    EXPECT_EQ(installation.HistoryTexts().last(), u"終了"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kNotAnswered});
}

TEST_F(RegistrationAnswer, AfterTheClockWasSetBackTheEndMessageWaitsUntilTheStarterWouldFindIt) {
    services.clock.now = QDateTime(QDate(2026, 11, 21), QTime(9, 29, 59));
    Click(u"btn_保存"_s);
    ExpectWaiting();
    services.clock.now = QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15));
    EXPECT_TRUE(QTest::qWaitFor([this] { return HasEnded(); }, 30000));
    EXPECT_EQ(Messages(), EndMessage(kKey));
}

TEST_F(RegistrationAnswer, TheCloseBoxEndsTheProgramWhileTheEndMessageCannotBeWritten) {
    RefuseAnswers();
    Click(u"btn_保存"_s);
    ExpectWaiting();
    Window().close();
    EXPECT_EQ(services.processes.ends, QList<int>{0});
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kNotAnswered});
    EXPECT_EQ(installation.HistoryTexts().last(), u"終了"_s);
}

TEST_F(RegistrationAnswer, NothingCanBeEnteredWhileTheEndMessageCannotBeWritten) {
    RefuseAnswers();
    Click(u"btn_保存"_s);
    Click(u"btn_保存"_s);
    ExpectWaiting();
    EXPECT_FALSE(Window().Enabled());
}
