#include "globals/ProgramGlobals.h"
#include "inquiry/SearchConditions.h"
#include "inquiry/StaffQuery.h"
#include "mainform/MultiSelectWindowsFixture.h"
#include "output/ReportData.h"
#include "screen/ListView.h"
#include "screen/modクライアント処理.h"
#include "support/ModalRobot.h"

using namespace Qt::StringLiterals;

namespace {
using MultiSelectSearchTest = MultiSelectTest;
}

TEST_F(MultiSelectSearchTest, StatementContainsTheSelectedCodesOfEachWindow) {
    struct Picks {
        size_t window;
        QStringList codes;
        QString condition;
    };
    const QList<Picks> picks = {
        {0,
         {u"010"_s, u"040"_s, u"070"_s},
         u" AND (M担当者.部門コード = '010' OR M担当者.部門コード = '040' OR M担当者.部門コード = '070')"_s},
        {1, {u"031"_s}, u" AND (M担当者.セクションコード = '031')"_s},
        {2, {u"90"_s, u"30"_s}, u" AND (M担当者.役職コード = '30' OR M担当者.役職コード = '90')"_s},
        {3, {u"00002"_s, u"00005"_s}, u" AND (M担当者.コード = '00002' OR M担当者.コード = '00005')"_s},
    };
    installation.ReplaceStaff(9);
    Start();
    for (const Picks& pick : picks) {
        Tick(RangeConditions()[pick.window], pick.codes);
        QString statement = Statement(pick.condition);
        EXPECT_EQ(BuildStaffStatement(), statement);
        EXPECT_EQ(FailuresOfSearch(), 0);
        EXPECT_EQ(History().last(), u"出力終了 "_s + statement.replace(u"'"_s, u"''"_s));
        Click(u"btn_画面クリア"_s);
    }
}

TEST_F(MultiSelectSearchTest, AllFourWindowsJoinInTheOrderOfTheStatement) {
    installation.ReplaceStaff(9);
    Start();
    Tick(Positions(), {u"20"_s});
    Tick(People(), {u"00001"_s});
    Tick(Sections(), {u"011"_s});
    Tick(Departments(), {u"010"_s});
    EXPECT_EQ(BuildStaffStatement(),
              Statement(u" AND (M担当者.部門コード = '010') AND (M担当者.セクションコード = '011')"
                        u" AND (M担当者.コード = '00001') AND (M担当者.役職コード = '20')"_s));
    EXPECT_EQ(FailuresOfSearch(), 0);
}

TEST_F(MultiSelectSearchTest, SelectionOverridesTheRange) {
    Start();
    Enter(u"開始部門コード"_s, u"090"_s);
    Tick(Departments(), {u"010"_s});
    EXPECT_EQ(BuildStaffStatement(), Statement(u" AND (M担当者.部門コード = '010')"_s));
    Open(Departments(), [](const FormRobot& robot) {
        robot.Click(u"btn_選択クリア"_s);
        GoBack(robot);
    });
    EXPECT_EQ(Item(u"開始部門コード"_s).Text(), u"090"_s);
    EXPECT_EQ(BuildStaffStatement(), Statement(u" AND M担当者.部門コード >= '090' AND M担当者.部門コード <= '999'"_s));
}

TEST_F(MultiSelectSearchTest, CombinedSelectionsAgreeWithAReferenceQuery) {
    for (const QString& department : {u"030"_s, u"040"_s, u"050"_s})
        installation.AddStaff(u"99"_s + department, {{u"カナ"_s, u"ﾔﾏﾀﾞ ｲﾁﾛｳ"_s}, {u"部門コード"_s, department}});
    Start();
    const QStringList everybody = Found();
    Tick(Departments(), {u"010"_s, u"030"_s, u"050"_s});
    {
        ModalRobot user(u"wnd担当者カナ複数指定"_s, [](ModalRobot& values) {
            values.Type(u"ﾔ"_s);
            values.Click(u"担当者カナ"_s, 1);
            values.Type(u"ｲ"_s);
            values.Click(u"chb_絞込み"_s);
            values.Click(u"btn_戻る"_s);
        });
        Click(u"btn_カナ複数指定"_s);
    }
    EXPECT_EQ(
        BuildStaffStatement(),
        Statement(u" AND (M担当者.部門コード = '010' OR M担当者.部門コード = '030' OR M担当者.部門コード = '050')"_s,
                  u" AND (M担当者.カナ LIKE '%ﾔ%' AND M担当者.カナ LIKE '%ｲ%')"_s));
    EXPECT_EQ(FailuresOfSearch(), 0);
    const QStringList expected =
        Staff(u"部門コード IN ('010', '030', '050') AND instr(カナ, 'ﾔ') AND instr(カナ, 'ｲ')"_s);
    EXPECT_EQ(Found(), expected);
    EXPECT_FALSE(expected.isEmpty());
    EXPECT_LT(expected.size(), Staff(u"部門コード IN ('010', '030', '050')"_s).size());
    Click(u"btn_画面クリア"_s);
    EXPECT_EQ(Globals().LastRow, -1);
    for (const QString& item : {u"開始部門コード"_s, u"終了部門コード"_s, u"検索カナ"_s})
        EXPECT_TRUE(Item(item).Enabled()) << item.toStdString();
    for (const QString& button : {u"btn_部門個別選択"_s, u"btn_カナ複数指定"_s})
        EXPECT_EQ(Item(button).ForeColor(), QColor(0, 0, 128)) << button.toStdString();
    EXPECT_EQ(BuildStaffStatement(), Statement({}));
    Click(u"btn_集計検索"_s);
    EXPECT_EQ(Found(), everybody);
}

TEST_F(MultiSelectSearchTest, ClearUnloadsAllFourWindows) {
    Start();
    for (const RangeCondition& window : RangeConditions()) {
        Open(window, [](const FormRobot& robot) {
            robot.ClickMark(0);
            GoBack(robot);
        });
    }
    Click(u"btn_画面クリア"_s);
    for (const RangeCondition& window : RangeConditions()) {
        EXPECT_FALSE(IsFormLoaded(window.selection.window));
        EXPECT_FALSE(Globals().SelectionWindows.contains(window.selection.window));
        EXPECT_FALSE(Picked(window));
        EXPECT_EQ(Item(window.selection.button).ForeColor(), QColor(0, 0, 128))
            << window.selection.button.toStdString();
        EXPECT_TRUE(Item(window.fromItem).Enabled());
        EXPECT_TRUE(Item(QString(window.fromItem).replace(u"開始"_s, u"終了"_s)).Enabled());
        Open(window, [](const FormRobot& robot) {
            EXPECT_TRUE(robot.MarkedCodes().isEmpty());
            GoBack(robot);
        });
    }
    EXPECT_EQ(BuildStaffStatement(), Statement({}));
}

TEST_F(MultiSelectSearchTest, DeletedDepartmentStillFindsItsStaffWithoutAName) {
    Start();
    const QStringList theirs = Staff(u"部門コード = '010'"_s);
    Tick(Departments(), {u"010"_s});
    installation.General().Execute(u"DELETE FROM M部門 WHERE コード = '010'"_s);
    EXPECT_EQ(FailuresOfSearch(), 0);
    EXPECT_EQ(Found(), theirs);
    EXPECT_FALSE(theirs.isEmpty());
    EXPECT_EQ(Source(Departments()).DescribeSelection(), QString());
    Open(Departments(), [](const FormRobot& robot) {
        EXPECT_EQ(robot.MarkedCodes(), QStringList{u"010"_s}) << "the list is what was loaded";
        robot.Click(u"btn_画面クリア"_s);
        EXPECT_FALSE(robot.Codes().contains(u"010"_s));
        GoBack(robot);
    });
    EXPECT_FALSE(Picked(Departments()));
}

TEST_F(MultiSelectSearchTest, CodesAreNotEscaped) {
    installation.General().Execute(u"INSERT INTO M役職 (コード, 名称) VALUES ('A1', '顧問'), ('B''', '相談役')"_s);
    Start();
    Tick(Positions(), {u"A1"_s});
    EXPECT_EQ(BuildStaffStatement(), Statement(u" AND (M担当者.役職コード = 'A1')"_s));
    EXPECT_EQ(FailuresOfSearch(), 0);
    Tick(Positions(), {u"B'"_s});
    EXPECT_EQ(BuildStaffStatement(), Statement(u" AND (M担当者.役職コード = 'A1' OR M担当者.役職コード = 'B'')"_s));
    EXPECT_EQ(FailuresOfSearch(), 1);
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(MultiSelectSearchTest, ThousandSelectedStaffAreOneStatement) {
    installation.ReplaceStaff(1200);
    Start();
    Open(People(), [](const FormRobot& robot) {
        robot.List().SetFocus();
        robot.Press(Qt::Key_A, Qt::ControlModifier);
        robot.Click(u"btn_複数選択"_s);
        GoBack(robot);
    });
    QStringList terms, codes, names;
    for (int code = 1; code <= 1000; ++code) {
        codes << QString::number(code).rightJustified(5, u'0');
        names << u"氏名"_s + QString::number(code);
        terms << u"M担当者.コード = '"_s + codes.last() + u'\'';
    }
    EXPECT_EQ(BuildStaffStatement(), Statement(u" AND ("_s + terms.join(u" OR "_s) + u')'));
    EXPECT_EQ(FailuresOfSearch(), 0);
    EXPECT_EQ(Found(), codes);
    EXPECT_EQ(Source(People()).DescribeSelection(), u"担当者："_s + names.join(u','));
}

TEST_F(MultiSelectSearchTest, PrintedTextDescribesTheSelection) {
    installation.ReplaceStaff(3);
    Start();
    Tick(Departments(), {u"010"_s, u"030"_s});
    Tick(People(), {u"00002"_s});
    EXPECT_EQ(BuildSelectionText(), u"在籍区分：在籍  部門：総務部,経理部  担当者：氏名2  表示順：所属コード順"_s);
}
