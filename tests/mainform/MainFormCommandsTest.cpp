#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/ScreenState.h"
#include "mainform/SelectionFixture.h"
#include "screen/Form.h"
#include "screen/modマウスWHeel.h"
#include "support/ModalRobot.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kOutputs = {u"btn_印刷"_s, u"btn_プレビュ"_s, u"btn_テキスト出力"_s,
                              u"btn_封筒"_s, u"btn_はがき"_s,   u"btn_宛名ラベル"_s};

/// A start command with all fields: all codes, no texts, the given order.
QString CommandInOrder(const QString& order) {
    return (u"000"_s + u"000999"_s + u"000999"_s + u"0099"_s + u"0000099999"_s).leftJustified(179) + order;
}

}  // namespace

using CommandsTest = SelectionTest;

TEST_F(CommandsTest, PlainStartShowsThePayrollOfAllClassesByOrganisation) {
    Start();
    const int staff = installation.General().Rows(u"SELECT コード FROM M担当者 WHERE 在籍区分 = '0'"_s).size();
    EXPECT_EQ(Globals().LastRow + 1, staff);
    EXPECT_EQ(History().last(), u"出力終了 "_s + Statement({}).replace(u"'"_s, u"''"_s));
    EXPECT_EQ(Globals().Conditions.EnrolmentKind, 0);
    EXPECT_EQ(Globals().Conditions.StaffClass, Item(u"社員区分"_s).MaxValue());  // 9 became the list's 全て
    EXPECT_EQ(Item(u"社員区分名称"_s).ListIndex(), Item(u"社員区分"_s).MaxValue());
    EXPECT_EQ(Focused(), u"検索名称"_s);
    EXPECT_TRUE(Globals().StartCommandAbsent);
}

TEST_F(CommandsTest, ShortCommandEmptiesTheRangesUntilTheClear) {
    Start(u"001"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"001"_s);
    EXPECT_EQ(Globals().Conditions.DepartmentFrom, QString());
    EXPECT_EQ(Globals().Conditions.StaffTo, QString());
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_TRUE(Globals().StartCommandAbsent);
    for (const RangeCondition& range : RangeConditions())
        for (const QString& item : {range.fromItem, range.toItem}) EXPECT_EQ(Item(item).Text(), QString());
    EXPECT_EQ(History().last(),
              HistoryRow(u" AND M担当者.部門コード >= '' AND M担当者.部門コード <= ''"
                         u" AND M担当者.セクションコード >= '' AND M担当者.セクションコード <= ''"
                         u" AND M担当者.コード >= '' AND M担当者.コード <= ''"
                         u" AND M担当者.役職コード >= '' AND M担当者.役職コード <= '' AND M担当者.在籍区分 = '0'"
                         u" AND M担当者.事業所コード = '001' ORDER BY M担当者.コード"_s));
    Click(u"btn_画面クリア"_s);
    Click(u"btn_集計検索"_s);
    EXPECT_GE(Globals().LastRow, 0);
}

TEST_F(CommandsTest, BlankRangeOfACommandEmptiesTheStartOnly) {
    const QString command =
        (u"000"_s + u"      "_s + u"000999"_s + u"0099"_s + u"0000099999"_s).leftJustified(179) + u"0"_s;
    ASSERT_EQ(command.size(), 180);
    Start(command);
    EXPECT_EQ(Globals().Conditions.DepartmentFrom, QString());
    EXPECT_EQ(Globals().Conditions.DepartmentTo, u"   "_s);
    EXPECT_EQ(Globals().Conditions.DisplayOrder, 0);
    EXPECT_FALSE(Globals().StartCommandAbsent);
    EXPECT_TRUE(History().last().contains(u"M担当者.部門コード >= '''' AND M担当者.部門コード <= ''   ''"_s))
        << History().last().toStdString();
}

TEST_F(CommandsTest, BlankFirstFieldShiftsAllOthersToTheLeft) {
    Start(u"   010020000999"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"010"_s);
    EXPECT_EQ(Globals().Conditions.DepartmentFrom, u"020"_s);
    EXPECT_EQ(Globals().Conditions.DepartmentTo, u"000"_s);
}

TEST_F(CommandsTest, EmptyPositionEndSearchesAndFindsNothing) {
    installation.General().Execute(u"UPDATE M担当者 SET 役職コード = NULL WHERE 役職コード = ''"_s);
    Start();
    Enter(u"終了役職コード"_s, QString());
    const int rows = History().size();
    Click(u"btn_集計検索"_s);
    EXPECT_EQ(History().size(), rows + 1);
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_FALSE(Item(u"btn_印刷"_s).Enabled());
}

TEST_F(CommandsTest, EmptyStaffEndSearchesAndFindsNothing) {
    Start();
    Enter(u"終了担当者コード"_s, QString());
    const qsizetype rows = History().size();
    Click(u"btn_集計検索"_s);
    ASSERT_EQ(History().size(), rows + 1);
    EXPECT_EQ(History().last(),
              HistoryRow(u" AND M担当者.コード >= '' AND M担当者.コード <= '' AND M担当者.在籍区分 = '0'"
                         u" ORDER BY M担当者.事業所コード, M担当者.部門コード, M担当者.セクションコード,"
                         u" M担当者.役職コード, M担当者.コード"_s));
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_EQ(Focused(), u"検索名称"_s);
}

TEST_F(CommandsTest, EmptyEndPreventsTheSearchAndGetsTheFocus) {
    Start();
    for (const QString& end : {u"終了部門コード"_s, u"終了セクションコード"_s}) {
        Enter(end, QString());
        const QStringList history = History();
        const int lastRow = Globals().LastRow;
        Click(u"btn_集計検索"_s);
        EXPECT_EQ(History(), history);
        EXPECT_EQ(Globals().LastRow, lastRow);
        EXPECT_EQ(Focused(), end);
        Enter(end, u"999"_s);
    }
}

TEST_F(CommandsTest, UnknownOrderOfACommandDoesNotSort) {
    Start(CommandInOrder(u"7"_s));
    const QString unsorted = HistoryRow(u" AND M担当者.在籍区分 = '0'"_s);
    for (const bool pressed : {false, true}) {
        if (pressed) Click(u"btn_集計検索"_s);
        EXPECT_EQ(History().last(), unsorted);
        EXPECT_EQ(Globals().Conditions.DisplayOrder, 7);
        EXPECT_EQ(Item(u"表示順区分名称"_s).ListIndex(), -1);
        EXPECT_GE(Globals().LastRow, 0);
    }
}

TEST_F(CommandsTest, SearchStartsAtTheTopAndReturnsToTheNameItem) {
    Start();
    Item(u"scl_行"_s).SetValue(8);
    Click(u"検索住所"_s);
    Click(u"btn_集計検索"_s);
    EXPECT_EQ(Globals().TopRow, 0);
    EXPECT_EQ(Item(u"scl_行"_s).Value(), 0);
    EXPECT_EQ(Focused(), u"検索名称"_s);
    EXPECT_EQ(Column(u"行No"_s)[0], u"1"_s);
}

TEST_F(CommandsTest, SearchPutsTheItemsOfASelectionOutOfUseAgain) {
    Start();
    Enter(u"検索カナ"_s, u"ｱ"_s);
    {
        ModalRobot user(u"wnd担当者名複数指定"_s, [](ModalRobot& names) {
            names.Type(u"山"_s);
            names.Click(u"btn_戻る"_s);
        });
        Click(u"btn_名称複数指定"_s);
    }
    ASSERT_TRUE(Globals().Flags.NameListGiven);
    Click(u"btn_集計検索"_s);
    EXPECT_FALSE(Item(u"検索名称"_s).Enabled());
    EXPECT_EQ(Item(u"btn_名称複数指定"_s).ForeColor(), QColor(0, 192, 0));
    EXPECT_TRUE(Item(u"btn_名称複数指定"_s).Enabled());
    EXPECT_TRUE(Item(u"検索カナ"_s).Enabled());
    EXPECT_TRUE(Item(u"btn_終了"_s).Enabled());
    EXPECT_EQ(Item(u"検索カナ"_s).Text(), u"ｱ"_s);
    EXPECT_EQ(Focused(), u"検索カナ"_s);
}

TEST_F(CommandsTest, ClearEmptiesTheListAndSearchesNothing) {
    Start();
    const QStringList history = History();
    Item(u"scl_行"_s).SetValue(5);
    Click(u"btn_画面クリア"_s);
    EXPECT_EQ(History(), history);
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_EQ(Column(u"担当者コード"_s), QStringList(8, QString()));
    EXPECT_FALSE(Item(u"scl_行"_s).Enabled());
    EXPECT_FALSE(Item(u"btn_印刷"_s).Enabled());
    EXPECT_EQ(Focused(), u"検索名称"_s);
}

TEST_F(CommandsTest, RowClickWithAMissingRangeEndSendsTheFocusToIt) {
    Start();
    Globals().Conditions.SectionTo.clear();
    Click(u"担当者名"_s, 1);
    EXPECT_EQ(Focused(), u"終了セクションコード"_s);
}

TEST_F(CommandsTest, RowReturnsToItsColoursWhereTheProgramCannotBeStarted) {
    Start();
    QList<QColor> before;
    const QStringList panels = {u"bak_dtl_行No"_s, u"bak_dtla"_s, u"bak_dtlb"_s, u"bak_dtlc"_s, u"bak_dtld"_s};
    for (const QString& panel : panels) before << Item(panel, 1).BackColor();
    Click(u"担当者名"_s, 1);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"情報登録プログラムが有りません"_s});
    for (int i = 0; i < panels.size(); ++i) EXPECT_EQ(Item(panels[i], 1).BackColor(), before[i]);
}

TEST_F(CommandsTest, OutputButtonsStayOnWithAllRowsTickedOff) {
    installation.ReplaceStaff(kRowPositions);
    Start();
    for (int position = 0; position < kRowPositions; ++position) Click(u"chb_出力対象"_s, position);
    for (size_t row = 0; row < kRowPositions; ++row) EXPECT_EQ(Globals().Rows.出力対象[row], 0);
    Click(u"検索カナ"_s);
    for (const QString& button : kOutputs) EXPECT_TRUE(Item(button).Enabled()) << button.toStdString();
}

TEST_F(CommandsTest, OutputAsksInItsOwnWordsAndReturnsToTheHead) {
    Start();
    Click(u"検索カナ"_s);
    const QList<QPair<QString, QString>> outputs = {{u"btn_印刷"_s, u"印刷しますか?"_s},
                                                    {u"btn_プレビュ"_s, u"プレビュしますか?"_s},
                                                    {u"btn_封筒"_s, u"印刷しますか?"_s},
                                                    {u"btn_はがき"_s, u"印刷しますか?"_s},
                                                    {u"btn_宛名ラベル"_s, u"印刷しますか?"_s}};
    for (const auto& [button, question] : outputs) {
        services.dialogs.shown.clear();
        Click(button);
        ASSERT_EQ(services.dialogs.Texts(), QStringList{question}) << button.toStdString();
        EXPECT_TRUE(services.dialogs.shown.first().question);
        EXPECT_EQ(services.dialogs.shown.first().title, u"要員名簿照会"_s);
        EXPECT_EQ(Focused(), u"検索カナ"_s);
    }
}

TEST_F(CommandsTest, CloseBoxAndEndButtonLeaveTheSameWay) {
    for (const bool byButton : {false, true}) {
        Start();
        if (byButton)
            Click(u"btn_終了"_s);
        else
            MainForm().close();
        EXPECT_EQ(History().last(), u"終了"_s);
        EXPECT_EQ(services.processes.ends, QList<int>{0});
        EXPECT_FALSE(Globals().MainConnection.IsOpen());
        EXPECT_FALSE(Globals().ConfigConnection.IsOpen());
        EXPECT_FALSE(RemoveWheelHook()) << "it has gone before";
        services.processes.ends.clear();
        TearDown();
        ResetGlobals();
    }
}

TEST_F(CommandsTest, HandlersAreIgnoredWhileBusy) {
    Start();
    const QStringList history = History();
    for (bool ProgramGlobals::*const flag : {&ProgramGlobals::ScreenPainting, &ProgramGlobals::LinkWaiting}) {
        Globals().*flag = true;
        Click(u"btn_集計検索"_s);
        Click(u"btn_画面クリア"_s);
        for (const QString& button : kOutputs) Click(button);
        EXPECT_EQ(History(), history);
        EXPECT_GE(Globals().LastRow, 0);
        EXPECT_TRUE(services.dialogs.shown.isEmpty());
        EXPECT_TRUE(services.dialogs.saveQuestions.isEmpty());
        Item(u"検索カナ"_s).SetFocus();
        Globals().Conditions.StaffTo.clear();
        Item(u"ヘッド終了"_s).SetFocus();
        Press(Qt::Key_A);
        EXPECT_EQ(Focused(), u"ヘッド終了"_s);
        Globals().Conditions.StaffTo = u"99999"_s;
        Globals().*flag = false;
    }
}

TEST_F(CommandsTest, ManualOpensUnderItsFullWidthName) {
    Start();
    Click(u"manualpanel"_s);
    ASSERT_EQ(services.processes.documents.size(), 1);
    EXPECT_EQ(services.processes.documents.first().path, installation.Root() + u"/manual/要員名簿照会.doc"_s);
    EXPECT_EQ(services.processes.documents.first().workingFolder, installation.Root() + u"/manual"_s);
}
