#include <QTimer>
#include <QtTest/QTest>

#include <functional>

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffQuery.h"
#include "screen/Form.h"
#include "support/LinkAnswers.h"
#include "support/MainFormFixture.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

namespace {

const QString kNoProgram = u"情報登録プログラムが有りません"_s;
constexpr int kPosition = 2;
constexpr int kStaff = 12;

/// Runs `job` and calls `onIteration` each time it processes events.
void WhilePumping(const std::function<void()>& onIteration, const std::function<void()>& job) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, onIteration);
    timer.start(0);
    job();
}

/// The main form with twelve staff members, 00001 to 00012.
class RowLaunch : public MainFormTest {
  protected:
    RowLaunch() {
        installation.ClearStaff();
        for (int i = 1; i <= kStaff; ++i)
            installation.AddStaff(Code(i), {{u"氏名"_s, u"要員"_s + QString::number(i)}, {u"EMAIL"_s, QString()}});
    }

    static QString Code(int number) { return QString::number(number).rightJustified(5, u'0'); }
    QList<QStringList> Messages() const { return LinkRows(installation.Configuration()); }
    QString Now() const { return TimeStamp(services.clock.now); }
    void Delete(const QString& code) const {
        installation.General().Execute(u"DELETE FROM M担当者 WHERE コード = "_s + SqlLiteral(code));
    }
    void ExpectDisabledForGood() {
        EXPECT_EQ(services.dialogs.Texts(), QStringList{kNoProgram});
        EXPECT_FALSE(MainForm().Enabled());
        EXPECT_FALSE(Globals().LinkWaiting);
    }
};

}  // namespace

TEST_F(RowLaunch, ClickStartsTheRegistrationProgramWithOfficeAndStaffCode) {
    AnswerAtOnce(services, installation);
    Start(u"001000999000999009900000"_s + u"99999"_s);
    Globals().ScopeOfficeCode = u"001"_s;
    Globals().Rows.SetText(StaffText::担当者コード, kPosition, Code(3));
    Globals().LastRow = kPosition;
    Click(u"担当者名"_s, kPosition);
    ASSERT_EQ(services.processes.starts.size(), 1);
    EXPECT_EQ(services.processes.starts[0].path, installation.ProgramFolder() + u"/要員台帳更新.exe"_s);
    EXPECT_EQ(services.processes.starts[0].arguments, u"00100003"_s);
}

TEST_F(RowLaunch, StartMessageIsWrittenBeforeTheProgramStarts) {
    Start();
    AnswerAtOnce(services, installation);
    const auto answer = services.processes.started;
    services.processes.started = [&](const RecordingProcesses::Start& start) {
        EXPECT_EQ(Messages(), (QList<QStringList>{{Now(), u"要員名簿照会"_s, u"要員台帳更新"_s, Now(), u"00"_s,
                                                   u"00000003"_s, u""_s, u"000"_s, u"00001"_s, u"tester"_s}}));
        EXPECT_FALSE(MainForm().Enabled());
        EXPECT_FALSE(Globals().LinkWaiting) << "the wait has not begun";
        EXPECT_EQ(services.clock.sleeps, QList<int>{100});
        answer(start);
    };
    Click(u"担当者名"_s, kPosition);
    EXPECT_TRUE(MainForm().Enabled());
    EXPECT_FALSE(Globals().LinkWaiting);
    EXPECT_EQ(Messages(), QList<QStringList>());
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(RowLaunch, KeyHoldsExactlyFiveCharactersOfStaffCode) {
    AnswerAtOnce(services, installation);
    Start();
    const QList<QPair<QString, QString>> cases = {{u"12345"_s, u"00012345"_s},
                                                  {u"12"_s, u"00012   "_s},
                                                  {u" 7"_s, u"000 7   "_s},
                                                  {u"1234567"_s, u"00012345"_s},
                                                  {u"a'b"_s, u"000a'b  "_s}};
    for (const auto& [code, key] : cases) {
        Globals().Rows.SetText(StaffText::担当者コード, 0, code);
        Globals().LastRow = 0;
        LaunchStaffRegistration(0);
        EXPECT_EQ(services.processes.starts.last().arguments, key);
        EXPECT_EQ(Messages(), QList<QStringList>());
    }
    EXPECT_EQ(services.processes.starts.size(), cases.size());
}

TEST_F(RowLaunch, RowWithoutACodeLaunchesNothing) {
    Start();
    for (const QString& code : {u""_s, u"     "_s}) {
        Globals().Rows.SetText(StaffText::担当者コード, kPosition, code);
        Click(u"担当者名"_s, kPosition);
        EXPECT_TRUE(MainForm().Enabled());
    }
    EXPECT_EQ(services.processes.starts.size(), 0);
    EXPECT_EQ(Messages(), QList<QStringList>());
}

TEST_F(RowLaunch, ScrolledListLaunchesTheRowThatIsSeen) {
    AnswerAtOnce(services, installation);
    Start();
    Item(u"scl_行"_s).SetValue(4);
    Click(u"担当者名"_s, kPosition);
    EXPECT_EQ(services.processes.starts[0].arguments, u"00000007"_s);
}

TEST_F(RowLaunch, MissingProgramShowsAMessageAndLeavesTheFormDisabled) {
    Start();
    const QColor color = Item(u"bak_dtla"_s, kPosition).BackColor();
    const qsizetype history = History().size();
    Click(u"担当者名"_s, kPosition);
    ExpectDisabledForGood();
    EXPECT_EQ(services.dialogs.shown[0].title, u"要員名簿照会"_s);
    ASSERT_EQ(Messages().size(), 1);
    EXPECT_EQ(Messages()[0][4], u"00"_s);
    EXPECT_EQ(History().size(), history) << "the row is not read again";
    EXPECT_EQ(Item(u"bak_dtla"_s, kPosition).BackColor(), color);
    Click(u"担当者名"_s, kPosition + 1);
    EXPECT_EQ(services.processes.starts.size(), 1) << "a disabled form takes no click";
    MainForm().close();
    EXPECT_EQ(services.processes.ends, QList<int>{0}) << "the close box works all the same";
}

TEST_F(RowLaunch, FailureBeforeTheStartShowsTheSameMessage) {
    Start();
    installation.Configuration().Execute(u"DROP TABLE 動作環境定義"_s);
    Click(u"担当者名"_s, kPosition);
    ExpectDisabledForGood();
    EXPECT_EQ(services.processes.starts.size(), 0);
}

TEST_F(RowLaunch, FailedReloadShowsTheSameMessage) {
    Start();
    AnswerAtOnce(services, installation, [this](const RecordingProcesses::Start&) {
        installation.General().Execute(u"UPDATE M担当者 SET 住所B = NULL WHERE コード = '00003'"_s);
    });
    Click(u"担当者名"_s, kPosition);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kNoProgram});
    EXPECT_TRUE(MainForm().Enabled());
}

TEST_F(RowLaunch, ChangedRowShowsNameAndColourOfItsLogEntry) {
    Start();
    AnswerAtOnce(services, installation, [this](const RecordingProcesses::Start&) {
        installation.General().Execute(
            u"UPDATE M担当者 SET 氏名 = '改名　三郎' WHERE コード = '00003';"
            u"INSERT INTO T閲覧 (担当者コード, 閲覧情報, 伝票事業所コード, 伝票番号基準日付, 伝票No, キー項目, "
            u"閲覧日付, 閲覧時刻, 閲覧区分) VALUES ('00001', '要員台帳更新', '', '', '', '00003', '20261121', '093015', '1')"_s);
    });
    const QStringList codes = Column(u"担当者コード"_s);
    Item(u"chb_出力対象"_s, kPosition).SetValue(0);
    Click(u"担当者名"_s, kPosition);
    EXPECT_EQ(Item(u"担当者名"_s, kPosition).Text(), u"改名　三郎"_s);
    EXPECT_EQ(Column(u"担当者コード"_s), codes);
    EXPECT_EQ(Item(u"担当者コード"_s, kPosition).ForeColor(), QColor(0, 128, 0));
    EXPECT_EQ(Item(u"chb_出力対象"_s, kPosition).Value(), 1) << "it comes back ticked";
}

TEST_F(RowLaunch, DeletedStaffMemberIsRemovedWithoutRenumbering) {
    Start();
    AnswerAtOnce(services, installation, [this](const RecordingProcesses::Start&) { Delete(Code(3)); });
    Click(u"担当者名"_s, kPosition);
    EXPECT_EQ(Globals().LastRow, kStaff - 2);
    EXPECT_EQ(Column(u"行No"_s), (QStringList{u"1"_s, u"2"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s}));
    EXPECT_EQ(Item(u"担当者名"_s, kPosition).Text(), u"要員4"_s);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(RowLaunch, StaffMemberDeletedMeanwhileByOthersIsGoneOnReturn) {
    AnswerAtOnce(services, installation);
    Start();
    Delete(Code(1));
    Click(u"bak_dtla"_s, 0);
    EXPECT_EQ(Item(u"行No"_s, 0).Text(), u"2"_s);
    EXPECT_EQ(Globals().LastRow, kStaff - 2);
}

TEST_F(RowLaunch, HandlersReturnAtOnceWhileTheSiblingIsAwaited) {
    Start();
    services.processes.started = [](const RecordingProcesses::Start&) {};
    const qsizetype history = History().size();
    int turns = 0;
    WhilePumping(
        [&] {
            if (!Globals().LinkWaiting) return;
            for (const QString& button : {u"btn_集計検索"_s, u"btn_画面クリア"_s, u"btn_印刷"_s, u"btn_部門個別選択"_s})
                Item(button).Click();
            Item(u"担当者名"_s, kPosition + 1).Click();
            Click(u"btn_集計検索"_s);
            QTest::keyClick(&MainForm(), Qt::Key_Tab);
            if (++turns == 3) AddLinkRow(installation.Configuration(), {.sentAt = Now(), .key = u"00000003"_s});
        },
        [this] { Click(u"担当者名"_s, kPosition); });
    EXPECT_GE(turns, 3);
    EXPECT_EQ(Globals().LastRow, kStaff - 1);
    EXPECT_EQ(services.processes.starts.size(), 1);
    EXPECT_EQ(History().size(), history + 1) << "nothing but the row's own statement";
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(RowLaunch, ReplyOlderThanTheSendTimeIsIgnoredAndStays) {
    Start();
    const QString old = TimeStamp(services.clock.now.addSecs(-1));
    services.processes.started = [&](const RecordingProcesses::Start& start) {
        AddLinkRow(installation.Configuration(), {.sentAt = old, .key = start.arguments, .endText = u"old"_s});
    };
    int turns = 0;
    WhilePumping(
        [&] {
            if (Globals().LinkWaiting && ++turns == 5)
                AddLinkRow(installation.Configuration(), {.sentAt = Now(), .key = u"00000003"_s, .endText = u"new"_s});
        },
        [this] { Click(u"担当者名"_s, kPosition); });
    EXPECT_GE(turns, 5);
    EXPECT_EQ(Globals().LinkEndInfo, u"new"_s);
    ASSERT_EQ(Messages().size(), 2);
    EXPECT_EQ(Messages()[0][4], u"00"_s) << "nobody took the start message";
    EXPECT_EQ(Messages()[1][0], old);
}

TEST_F(RowLaunch, CloseBoxEndsTheProgramOutOfTheWait) {
    Start();
    services.processes.started = [](const RecordingProcesses::Start&) {};
    QStringList closed;
    WhilePumping(
        [&] {
            if (!Globals().LinkWaiting || !closed.isEmpty()) return;
            MainForm().close();
            closed = History();
            // The fake process service returns; the real one does not.
            AddLinkRow(installation.Configuration(), {.sentAt = Now(), .key = u"00000003"_s});
        },
        [this] { Click(u"担当者名"_s, kPosition); });
    EXPECT_EQ(services.processes.ends, QList<int>{0});
    ASSERT_FALSE(closed.isEmpty());
    EXPECT_EQ(closed.last(), u"終了"_s);
}
