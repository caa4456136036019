// The real program under a window manager that moves, resizes and closes windows, or breaks the connection to the
// display, whatever the program is doing.

#include <gtest/gtest.h>

#include <QFile>
#include <QtTest/QTest>
#include <stdexcept>

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

enum class Moment { Idle, Search, Print, Question, ListWindow, Registration };

/// The real program with three staff members, at some moment of its work.
class WindowManager : public MainFormTest {
  protected:
    WindowManager() {
        user.StartProgram({});
        user.AwaitList();
        Start({}, kScreenHeight);
        Click(u"検索名称"_s);  // from now on the program's window is known
    }

    void Click(const QString& item, int position = -1) {
        const QWidget& widget = Item(item, position).FocusWidget();
        user.Click(widget.mapTo(&MainForm(), widget.rect().center()));
    }
    SampleFile Configuration() const { return user.Own(u"conf/usrcnfg.accdb"_s); }
    /// 摘要 of the user's history rows without the statements' texts.
    QStringList History() const {
        QStringList rows;
        for (const QStringList& row :
             Configuration().Rows(u"SELECT 摘要 FROM プログラム稼動履歴 WHERE プログラムID = '要員名簿照会'"
                                  u" ORDER BY proccounter"_s))
            rows.append(row.first().section(u" SELECT"_s, 0, 0));
        return rows;
    }
    void Lock(const SampleFile& file, const QString& statement) {
        lock = std::make_unique<OtherProgram>(file.Path());
        lock->Run(statement);
    }
    /// Brings the program to the moment; `newest` is then the window shown last.
    void Reach(Moment moment) {
        switch (moment) {
            case Moment::Idle:
                break;
            case Moment::Search:
                Lock(suite.General(), u"BEGIN EXCLUSIVE"_s);
                Click(u"btn_集計検索"_s);
                break;
            case Moment::Print:
                Click(u"btn_印刷"_s);
                newest = user.Screen().NewestOf(2);
                Lock(Configuration(), u"BEGIN IMMEDIATE"_s);
                ASSERT_TRUE(user.Screen().Press(newest, {u"Return"_s}));
                ASSERT_TRUE(QTest::qWaitFor([this] { return newest != user.Screen().NewestOf(2); }, kTimeout));
                break;
            case Moment::Question:
                Click(u"btn_印刷"_s);
                break;
            case Moment::ListWindow:
                Click(u"開始部門コード"_s);
                ASSERT_TRUE(user.Screen().Press(user.Window(), {u"Control_L"_s}));
                break;
            case Moment::Registration:
                Click(u"担当者名"_s, 1);
                break;
        }
        newest = moment == Moment::Idle ? user.Window() : user.Screen().OtherThan(user.Window());
        ASSERT_FALSE(newest.isEmpty());
    }
    void Unlock() {
        if (lock) lock->Run(u"COMMIT"_s);
        lock.reset();
    }
    /// Ends the moment as a user does; the program is idle afterwards.
    void Leave(Moment moment) {
        Unlock();
        if (moment == Moment::ListWindow || moment == Moment::Registration || moment == Moment::Question) {
            ASSERT_TRUE(user.Screen().Press(newest, {u"Escape"_s}));
        }
        ASSERT_FALSE(user.Screen().NewestOf(1).isEmpty());
        ASSERT_TRUE(user.Screen().AwaitIdle(user.Window()));
    }
    /// What the moment leaves in the history when its work is carried out.
    static QStringList RowsOf(Moment moment) {
        if (moment == Moment::Print) return {u"出力開始 印刷"_s, u"出力終了 印刷"_s};
        if (moment == Moment::Search || moment == Moment::Registration) return {u"出力終了"_s};
        return {};
    }

    const SharedSuite suite{3};
    SuiteUser user{suite, SuiteUser::Who::Runner};
    std::unique_ptr<OtherProgram> lock;
    QString newest;
};

class WindowManagerAt : public WindowManager, public testing::WithParamInterface<Moment> {};

std::string NameOf(const testing::TestParamInfo<Moment>& moment) {
    constexpr const char* kNames[] = {"Idle", "Search", "Print", "Question", "ListWindow", "Registration"};
    return kNames[static_cast<size_t>(moment.param)];
}

}  // namespace

TEST_P(WindowManagerAt, MovingAndResizingEveryWindowLosesNothing) {
    const QStringList before = History();
    ASSERT_NO_FATAL_FAILURE(Reach(GetParam()));
    for (const QString& window : {user.Window(), newest}) {
        const QSize size = user.Screen().SizeOf(window);
        for (const QSize& other : {QSize(1, 1), QSize(3000, 2000), size})
            ASSERT_TRUE(user.Screen().MoveAndResize(window, {7, 11}, other));
    }
    ASSERT_TRUE(user.Screen().MoveAndResize(user.Window(), {0, 0}, user.Screen().SizeOf(user.Window())));
    ASSERT_NO_FATAL_FAILURE(Leave(GetParam()));
    user.CloseProgram();
    EXPECT_EQ(History(), before + RowsOf(GetParam()) + QStringList{u"終了"_s});
}

// A window below a modal one and a form that waits for another program do not lose their work by a close box.
TEST_P(WindowManagerAt, CloseBoxesEndTheProgramInOrder) {
    const QStringList before = History();
    ASSERT_NO_FATAL_FAILURE(Reach(GetParam()));
    const bool modal = GetParam() == Moment::Question || GetParam() == Moment::ListWindow;
    ASSERT_TRUE(user.Screen().PressCloseBox(user.Window()));
    if (modal) {
        ASSERT_TRUE(user.Screen().AwaitIdle(user.Window()));
        EXPECT_EQ(user.Screen().OtherThan(user.Window()), newest) << "the modal window";
        ASSERT_TRUE(user.Screen().PressCloseBox(newest));
        ASSERT_FALSE(user.Screen().NewestOf(1).isEmpty());
        ASSERT_TRUE(user.Screen().PressCloseBox(user.Window()));
    }
    Unlock();
    EXPECT_TRUE(user.EndsInOrder());
    const QStringList added = History().mid(before.size());
    EXPECT_EQ(added.count(u"終了"_s), 1);
    EXPECT_EQ(added.value(added.size() - 1), u"終了"_s);
}

TEST_P(WindowManagerAt, BrokenConnectionToTheDisplayEndsTheProgramInOrder) {
    const QStringList before = History();
    ASSERT_NO_FATAL_FAILURE(Reach(GetParam()));
    ASSERT_TRUE(user.Screen().BreakConnection(user.Window()));
    Unlock();
    EXPECT_TRUE(user.EndsInOrder());
    const QStringList added = History().mid(before.size());
    EXPECT_EQ(added.count(u"終了"_s), 1);
    EXPECT_EQ(added.value(added.size() - 1), u"終了"_s);
}

INSTANTIATE_TEST_SUITE_P(Moment, WindowManagerAt,
                         testing::Values(Moment::Idle, Moment::Search, Moment::Print, Moment::Question,
                                         Moment::ListWindow, Moment::Registration),
                         NameOf);

// Otherwise the inquiry would wait for an answer for ever.
TEST_F(WindowManager, BrokenConnectionOfTheRegistrationAnswersTheInquiry) {
    const QStringList before = History();
    ASSERT_NO_FATAL_FAILURE(Reach(Moment::Registration));
    ASSERT_TRUE(user.Screen().BreakConnection(newest));
    // The row is read again.
    EXPECT_TRUE(QTest::qWaitFor([&] { return History() == before + QStringList{u"出力終了"_s}; }, kTimeout));
    EXPECT_EQ(LinkRows(Configuration()), QList<QStringList>());
}

namespace {

/// The real program, started by a user who must enter a PIN first.
class WindowManagerAtPin : public testing::Test {
  protected:
    WindowManagerAtPin() {
        suite.General().Execute(u"UPDATE Mユーザ SET 暗証番号有無 = '1'; UPDATE M事業所 SET 暗証番号有無 = '1'"_s);
        SampleFile(suite.Root() + u"/conf/usrcnfg.accdb"_s)
            .Execute(u"UPDATE 動作環境定義 SET 起動担当者コード = NULL"_s);
        user.StartProgram({});
        // The first start shows the wait dialog while it copies the user's files.
        if (!QTest::qWaitFor([this] { return History() == QList<QStringList>{{u"開始 "_s}}; }, kTimeout))
            throw std::runtime_error("the program does not start");
        dialog = user.Screen().NewestOf(1);
    }
    QList<QStringList> History() const {
        const SampleFile configuration = user.Own(u"conf/usrcnfg.accdb"_s);
        if (!QFile::exists(configuration.Path())) return {};
        return configuration.Rows(u"SELECT 摘要 FROM プログラム稼動履歴 ORDER BY proccounter"_s);
    }
    void ExpectEndOfStart() {
        EXPECT_TRUE(user.EndsInOrder());
        EXPECT_EQ(History(), (QList<QStringList>{{u"開始 "_s}, {u"終了"_s}}));
    }

    const SharedSuite suite{3};
    SuiteUser user{suite, SuiteUser::Who::Runner};
    QString dialog;
};

}  // namespace

TEST_F(WindowManagerAtPin, MovedResizedAndClosedDialogRefusesTheStart) {
    const QSize size = user.Screen().SizeOf(dialog);
    for (const QSize& other : {QSize(1, 1), QSize(3000, 2000), size})
        ASSERT_TRUE(user.Screen().MoveAndResize(dialog, {7, 11}, other));
    ASSERT_TRUE(user.Screen().AwaitIdle(dialog));
    ASSERT_TRUE(user.Screen().PressCloseBox(dialog));
    QString message;
    const auto shown = [&] { return (message = user.Screen().NewestOf(1)) != dialog; };
    ASSERT_TRUE(QTest::qWaitFor(shown, kTimeout));
    ASSERT_TRUE(user.Screen().Press(message, {u"Return"_s}));
    ExpectEndOfStart();
}

TEST_F(WindowManagerAtPin, BrokenConnectionToTheDisplayEndsTheProgramInOrder) {
    ASSERT_TRUE(user.Screen().AwaitIdle(dialog));
    ASSERT_TRUE(user.Screen().BreakConnection(dialog));
    ExpectEndOfStart();
}
