// Clicks and keys while the real program is busy: they must not be carried out afterwards.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QMap>
#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "support/LinkAnswers.h"
#include "support/MainFormFixture.h"
#include "support/OtherProgram.h"
#include "support/SuiteUser.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kScreenHeight = 864;  // of a virtual screen
constexpr int kTimeout = 20000;     // milliseconds

/// The real program with three staff members and one user. Another program locks a database, so that the inquiry waits
/// in the middle of its work.
class DroppedInput : public MainFormTest {
  protected:
    DroppedInput() {
        user.StartProgram({});
        user.AwaitList();
        Start({}, kScreenHeight);
        for (const QString& name : {u"btn_集計検索"_s, u"btn_画面クリア"_s, u"btn_印刷"_s, u"btn_プレビュ"_s,
                                    u"btn_テキスト出力"_s, u"btn_封筒"_s, u"検索名称"_s, u"開始部門コード"_s})
            places_.insert(name, CentreOf(Item(name).FocusWidget()));
        places_.insert(u"担当者名"_s, CentreOf(Item(u"担当者名"_s, 1).FocusWidget()));
        before_ = History();
    }

    QPoint CentreOf(const QWidget& widget) const { return widget.mapTo(&MainForm(), widget.rect().center()); }
    QString UserConfiguration() const { return user.Own(u"conf/usrcnfg.accdb"_s).Path(); }
    /// 摘要 of the user's history rows without the statements' texts.
    QStringList History() const {
        QStringList rows;
        for (const QStringList& row :
             SampleFile(UserConfiguration())
                 .Rows(u"SELECT 摘要 FROM プログラム稼動履歴 WHERE プログラムID = '要員名簿照会'"
                       u" ORDER BY proccounter"_s))
            rows.append(row.first().section(u" SELECT"_s, 0, 0));
        return rows;
    }
    qsizetype Searches() const { return History().count(u"出力終了"_s); }
    void Click(const QString& item) { user.Click(places_.value(item)); }
    bool ClickAgain(const QString& item) const { return user.Screen().Click(user.Window(), places_.value(item)); }
    /// What an impatient clerk does in the program's window while it does not respond.
    void Hammer() const {
        for (int i = 0; i < 4; ++i) ASSERT_TRUE(ClickAgain(u"btn_集計検索"_s));
        ASSERT_TRUE(ClickAgain(u"btn_印刷"_s));
        ASSERT_TRUE(ClickAgain(u"検索名称"_s));
        ASSERT_TRUE(user.Screen().Press(user.Window(), {u"x"_s, u"Return"_s, u"space"_s, u"Tab"_s, u"space"_s}));
    }
    /// Waits until the wait dialog is shown, hammers, and then lets the work continue.
    void HammerWhileBusy(OtherProgram& lock) {
        ASSERT_FALSE(user.Screen().NewestOf(2).isEmpty()) << "no wait dialog";
        ASSERT_NO_FATAL_FAILURE(Hammer());
        lock.Run(u"COMMIT"_s);
    }
    /// Prints by a button, with hammering when the history is to be written.
    void ExpectNothingElseWhilePrinting(const QString& button, const QString& operation, int windows) {
        Click(button);
        const QString question = user.Screen().NewestOf(2);
        OtherProgram lock(UserConfiguration());
        lock.Run(u"BEGIN IMMEDIATE"_s);  // others can read
        ASSERT_TRUE(user.Screen().Press(question, {u"Return"_s}));
        ASSERT_NO_FATAL_FAILURE(HammerWhileBusy(lock));
        const QString end = u"出力終了 "_s + operation;
        ASSERT_TRUE(QTest::qWaitFor([&] { return History().contains(end); }, kTimeout));
        ExpectHistory({u"出力開始 "_s + operation, end}, windows);
    }
    /// Closes the program when it has nothing left to do.
    void ExpectHistory(const QStringList& added, int windows = 1) {
        ASSERT_TRUE(user.Screen().AwaitIdle(user.Window()));
        ASSERT_FALSE(user.Screen().NewestOf(windows).isEmpty()) << "not as many windows as expected";
        user.CloseProgram();
        EXPECT_EQ(History(), before_ + added + QStringList{u"終了"_s});
    }

    const SharedSuite suite{3};
    SuiteUser user{suite, SuiteUser::Who::Runner};

  private:
    QMap<QString, QPoint> places_;
    QStringList before_;
};

}  // namespace

TEST_F(DroppedInput, HammeringDuringASearchRunsNothingElse) {
    OtherProgram lock(suite.General().Path());
    lock.Run(u"BEGIN EXCLUSIVE"_s);
    Click(u"btn_集計検索"_s);
    ASSERT_NO_FATAL_FAILURE(HammerWhileBusy(lock));
    ExpectHistory({u"出力終了"_s});
}

// Without rows the search processes no events.
TEST_F(DroppedInput, HammeringDuringASearchThatFindsNobodyRunsNothingElse) {
    Click(u"検索名称"_s);
    ASSERT_TRUE(user.Screen().Type(user.Window(), u"nobody"_s));
    OtherProgram lock(suite.General().Path());
    lock.Run(u"BEGIN EXCLUSIVE"_s);
    Click(u"btn_集計検索"_s);
    ASSERT_NO_FATAL_FAILURE(HammerWhileBusy(lock));
    ExpectHistory({u"出力終了"_s});
}

TEST_F(DroppedInput, HammeringDuringATextOutputRunsNothingElse) {
    const QString file = suite.Place(u"list.csv"_s);
    Click(u"btn_テキスト出力"_s);
    const QString dialog = user.Screen().NewestOf(2);
    OtherProgram lock(UserConfiguration());
    lock.Run(u"BEGIN IMMEDIATE"_s);  // others can read
    ASSERT_TRUE(user.Screen().Press(dialog, {u"ctrl+a"_s}) && user.Screen().Type(dialog, file) &&
                user.Screen().Press(dialog, {u"Return"_s}));
    ASSERT_NO_FATAL_FAILURE(HammerWhileBusy(lock));
    ASSERT_TRUE(QTest::qWaitFor([this] { return History().contains(u"出力終了 テキスト出力"_s); }, kTimeout));
    ExpectHistory({u"出力開始 テキスト出力"_s, u"出力終了 テキスト出力"_s});
}

TEST_F(DroppedInput, HammeringDuringAPrintRunsNothingElse) {
    ExpectNothingElseWhilePrinting(u"btn_印刷"_s, u"印刷"_s, 1);
}

TEST_F(DroppedInput, HammeringDuringAnEnvelopePrintRunsNothingElse) {
    ExpectNothingElseWhilePrinting(u"btn_封筒"_s, u"印刷"_s, 1);
}

// The preview's window remains.
TEST_F(DroppedInput, HammeringBeforeAPreviewRunsNothingElse) {
    ExpectNothingElseWhilePrinting(u"btn_プレビュ"_s, u"プレビュ"_s, 2);
}

TEST_F(DroppedInput, HammeringWhileARowIsReadAgainRunsNothingElse) {
    Click(u"担当者名"_s);
    const QString registration = user.Screen().OtherThan(user.Window());
    OtherProgram lock(suite.General().Path());
    lock.Run(u"BEGIN EXCLUSIVE"_s);
    ASSERT_NO_FATAL_FAILURE(Hammer());
    ASSERT_TRUE(user.Screen().Press(registration, {u"Escape"_s}));
    ASSERT_FALSE(user.Screen().NewestOf(1).isEmpty()) << "the registration program does not end";
    const auto answered = [this] { return LinkRows(SampleFile(UserConfiguration())).isEmpty(); };
    ASSERT_TRUE(QTest::qWaitFor(answered, kTimeout));
    ASSERT_NO_FATAL_FAILURE(Hammer());
    lock.Run(u"COMMIT"_s);
    ExpectHistory({u"出力終了"_s});
}

// The keys arrive before the list window does, so they must neither choose a row nor close it.
TEST_F(DroppedInput, HammeringWhileAListWindowLoadsRunsNothingElse) {
    Click(u"開始部門コード"_s);
    ASSERT_TRUE(user.Screen().AwaitIdle(user.Window()));
    OtherProgram lock(suite.General().Path());
    lock.Run(u"BEGIN EXCLUSIVE"_s);
    ASSERT_TRUE(user.Screen().Press(user.Window(), {u"Control_L"_s}));
    ASSERT_NO_FATAL_FAILURE(Hammer());
    ASSERT_TRUE(user.Screen().Press(user.Window(), {u"Down"_s, u"Return"_s, u"Escape"_s}));
    lock.Run(u"COMMIT"_s);
    const QString list = user.Screen().NewestOf(2);
    ASSERT_TRUE(user.Screen().AwaitIdle(user.Window()));
    ASSERT_EQ(user.Screen().NewestOf(2), list);
    ASSERT_TRUE(user.Screen().PressCloseBox(list));
    ExpectHistory({});
}
