#include "screen/ListView.h"
#include "screen/modクライアント処理.h"
#include "selection/ListWindowFixture.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

class MasterListWindowTest : public ListWindowTest {
  protected:
    const QStringList kInOperation = {u"010"_s, u"020"_s, u"030"_s, u"040"_s, u"050"_s,
                                      u"060"_s, u"070"_s, u"080"_s, u"090"_s, u"100"_s};
    const QStringList kAll = kInOperation + QStringList{u"110"_s, u"120"_s};

    /// Codes that a window shows when opened.
    QStringList Shown(const QString& window, const QString& condition = {}) {
        QStringList codes;
        Open(window, condition, {[&](const FormRobot& robot) {
                 codes = robot.Codes();
                 GoBack(robot);
             }});
        return codes;
    }
};

TEST_F(MasterListWindowTest, WindowsBearTheirTitlesListsCaptionsAndColumns) {
    const QList<QStringList> windows = {{u"wnd部門一覧"_s, u"部門一覧"_s, u"List部門"_s},
                                        {u"wndセクション一覧"_s, u"セクション一覧"_s, u"Listセクション"_s},
                                        {u"wnd役職一覧"_s, u"役職一覧"_s, u"List役職"_s}};
    for (const QStringList& window : windows) {
        Open(window[0], {[&](const FormRobot& robot) {
                 EXPECT_EQ(robot.Window().Name(), window[0]);
                 EXPECT_EQ(robot.Window().windowTitle(), window[1]);
                 EXPECT_EQ(robot.Item(u"prg_ttl"_s).Caption(), window[1]);
                 EXPECT_EQ(robot.List().Name(), window[2]);
                 EXPECT_EQ(robot.Item(u"btn_戻る"_s).Caption(), u"戻る"_s);
                 const QAbstractItemModel& model = *robot.List().model();
                 ASSERT_EQ(model.columnCount(), 2);
                 EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), u"コード"_s);
                 EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), u"名称"_s);
                 EXPECT_EQ(robot.List().header()->sectionSize(0), 50);   // 750 twips
                 EXPECT_EQ(robot.List().header()->sectionSize(1), 167);  // 2500 twips
                 const bool status = window[0] != u"wnd役職一覧";
                 for (const QString& item : {u"稼動状況区分"_s, u"稼動状況区分名称"_s, u"btn_画面クリア"_s})
                     EXPECT_EQ(robot.Window().Find(item) != nullptr, status) << item.toStdString();
                 if (status) {
                     EXPECT_EQ(robot.Item(u"itm_ttl_稼動状況区分"_s).Caption(), u"稼動状況"_s);
                     EXPECT_EQ(robot.Item(u"btn_画面クリア"_s).Caption(), u"条件ｸﾘｱ"_s);
                 }
                 GoBack(robot);
             }});
    }
}

TEST_F(MasterListWindowTest, NothingIsSelectedAfterTheLoadAndEnterDoesNothing) {
    Open(u"wnd部門一覧"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.List().SelectedRow(), -1);
             robot.List().SetFocus();
             robot.Press(Qt::Key_Return);
             EXPECT_TRUE(robot.Window().isVisible());
             EXPECT_EQ(robot.List().Row(0).key, u"C010"_s);
             GoBack(robot);
         }});
    EXPECT_EQ(Result().Text(), QString());
}

TEST_F(MasterListWindowTest, ShowsValueOneByDefaultAndAllOnRequest) {
    Open(u"wnd部門一覧"_s, {[&](const FormRobot& robot) {
             EXPECT_EQ(robot.Codes(), kInOperation);
             EXPECT_EQ(robot.Item(u"稼動状況区分"_s).Value(), 1);
             EXPECT_EQ(robot.Text(u"稼動状況区分名称"_s), u"稼動"_s);
             robot.Click(u"稼動状況区分"_s);
             robot.TypeText(u"2"_s);
             EXPECT_EQ(robot.Text(u"稼動状況区分名称"_s), u"全て"_s);
             EXPECT_EQ(robot.Codes(), kInOperation) << "a changed status alone loads nothing";
             robot.Click(u"btn_画面クリア"_s);
             EXPECT_EQ(robot.Codes(), kAll);
             EXPECT_EQ(robot.Focused(), u"List部門"_s);
             GoBack(robot);
         }});
}

TEST_F(MasterListWindowTest, ClearButtonClearsNothing) {
    Open(u"wndセクション一覧"_s, {[&](const FormRobot& robot) {
             robot.Click(u"稼動状況区分"_s);
             robot.TypeText(u"0"_s);
             robot.Click(u"btn_画面クリア"_s);
             EXPECT_EQ(robot.Item(u"稼動状況区分"_s).Value(), 0);
             EXPECT_EQ(robot.Text(u"稼動状況区分名称"_s), u"停止"_s);
             EXPECT_EQ(robot.Codes(), (QStringList{u"111"_s, u"121"_s}));
             GoBack(robot);
         }});
}

TEST_F(MasterListWindowTest, NumberAndListOfTheStatusShowEachOtherAndReportThemselves) {
    Open(u"wnd部門一覧"_s, {[&](const FormRobot& robot) {
             robot.Click(u"稼動状況区分"_s);
             EXPECT_EQ(Globals().ActiveItem, &robot.Item(u"稼動状況区分"_s));
             robot.Press(Qt::Key_Tab);
             EXPECT_EQ(Globals().ActiveItem, &robot.Item(u"稼動状況区分名称"_s));
             robot.Press(Qt::Key_Down);
             EXPECT_EQ(robot.Item(u"稼動状況区分"_s).Value(), 2);
             GoBack(robot);
         }});
}

TEST_F(MasterListWindowTest, StartCodeRestrictsPositionsOnly) {
    EXPECT_EQ(Shown(u"wnd部門一覧"_s, u"M部門.コード >= '050'"_s), kInOperation);
    EXPECT_EQ(Shown(u"wndセクション一覧"_s, u"Mセクション.コード >= '050'"_s).first(), u"011"_s);
    EXPECT_EQ(Shown(u"wnd役職一覧"_s, u"M役職.コード >= '30'"_s), (QStringList{u"30"_s, u"40"_s, u"50"_s, u"90"_s}));
}

TEST_F(MasterListWindowTest, HiddenWindowShowsItsFirstListAgain) {
    const QStringList first = Shown(u"wnd役職一覧"_s, u"M役職.コード >= '30'"_s);
    EXPECT_TRUE(IsFormLoaded(u"wnd役職一覧"_s));
    EXPECT_EQ(Shown(u"wnd役職一覧"_s, u"M役職.コード >= '90'"_s), first);
    EXPECT_EQ(Shown(u"wnd役職一覧"_s), first);
}

TEST_F(MasterListWindowTest, StatusTermOfACallerIsTakenOutOfItsCondition) {
    Open(u"wnd部門一覧"_s, u"M部門.稼動状況区分 = '0' AND M部門.コード >= '5'"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.Codes(), (QStringList{u"110"_s, u"120"_s}));
             EXPECT_EQ(robot.Item(u"稼動状況区分"_s).Value(), 0);
             EXPECT_EQ(Globals().ListCondition, u"M部門.コード >= '5'"_s);
             GoBack(robot);
         }});
    EXPECT_EQ(Globals().ListCondition, QString());
}

TEST_F(MasterListWindowTest, UnknownStatusTermsShowNoMessage) {
    EXPECT_EQ(Shown(u"wnd部門一覧"_s, u"M部門.稼動状況区分 LIKE '%2%'"_s), kAll);
    EXPECT_EQ(Shown(u"wndセクション一覧"_s, u"Mセクション.稼動状況区分 = '77"_s).size(), 2)
        << "an unclosed value is no number, and 0 is a status";
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(MasterListWindowTest, StatusBeyondTheListShowsNoEntryAndFindsNothing) {
    Open(u"wnd部門一覧"_s, u"M部門.稼動状況区分 = '7'"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.Codes(), QStringList());
             EXPECT_EQ(robot.Item(u"稼動状況区分名称"_s).ListIndex(), -1);
             GoBack(robot);
         }});
}

TEST_F(MasterListWindowTest, InvalidConditionGivesNoPositionsAndLogsAnError) {
    EXPECT_EQ(Shown(u"wnd役職一覧"_s, u"そんな条件 は ない"_s), QStringList());
    EXPECT_TRUE(
        History().last().endsWith(u"SELECT コード,名称 FROM M役職 WHERE そんな条件 は ない ORDER BY M役職.コード"_s))
        << History().last().toStdString();
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(MasterListWindowTest, OneStatusAloneMakesAllTheDefault) {
    installation.General().Execute(u"DELETE FROM K稼動状況区分 WHERE 区分 = '1'"_s);
    Open(u"wnd部門一覧"_s, {[&](const FormRobot& robot) {
             EXPECT_EQ(robot.Item(u"稼動状況区分"_s).MaxValue(), 1);
             EXPECT_EQ(robot.Text(u"稼動状況区分名称"_s), u"全て"_s);
             EXPECT_EQ(robot.Codes(), kAll);
             GoBack(robot);
         }});
}

TEST_F(MasterListWindowTest, MissingStatusTableLeavesAllAloneAndAValueWithoutAnEntry) {
    installation.General().Execute(u"DROP TABLE K稼動状況区分"_s);
    Open(u"wnd部門一覧"_s, {[&](const FormRobot& robot) {
             EXPECT_EQ(robot.Item(u"稼動状況区分"_s).MaxValue(), 0);
             EXPECT_EQ(robot.Item(u"稼動状況区分名称"_s).ListIndex(), -1);
             EXPECT_EQ(robot.Codes(), kInOperation);
             GoBack(robot);
         }});
    EXPECT_EQ(History(),
              QStringList{u"エラー no such table: K稼動状況区分SELECT * FROM K稼動状況区分 ORDER BY 区分"_s});
}

TEST_F(MasterListWindowTest, MissingAndEmptyMastersGiveAnEmptyListThatEscLeaves) {
    installation.General().Execute(u"DROP TABLE M部門; DELETE FROM M役職"_s);
    for (const QString& window : {u"wnd部門一覧"_s, u"wnd役職一覧"_s}) {
        Open(window, {[](const FormRobot& robot) {
                 EXPECT_EQ(robot.Codes(), QStringList());
                 robot.List().SetFocus();
                 robot.Press(Qt::Key_Return);
                 robot.Press(Qt::Key_Down);
                 robot.Press(Qt::Key_Return);
                 robot.TypeText(u"1"_s);
                 EXPECT_TRUE(robot.Window().isVisible());
                 robot.Press(Qt::Key_Escape);
             }});
    }
    EXPECT_EQ(History(), QStringList{u"エラー no such table: M部門SELECT コード,名称 FROM M部門"
                                     u" WHERE M部門.稼動状況区分 = ''1'' ORDER BY M部門.コード"_s});
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(MasterListWindowTest, MastersWithAStatusAreReadByItAndWithoutATermForAll) {
    for (const QString& name : {u"部門"_s, u"セクション"_s}) {
        installation.General().Execute(u"DROP TABLE M"_s + name);
        const auto before = History().size();
        Open(u"wnd"_s + name + u"一覧"_s, {[](const FormRobot& robot) {
                 robot.Click(u"稼動状況区分"_s);
                 robot.TypeText(u"2"_s);
                 robot.Click(u"btn_画面クリア"_s);
                 GoBack(robot);
             }});
        const QString read = u"エラー no such table: M%1SELECT コード,名称 FROM M%1"_s.arg(name);
        EXPECT_EQ(History().mid(before),
                  (QStringList{read + u" WHERE M%1.稼動状況区分 = ''1'' ORDER BY M%1.コード"_s.arg(name),
                               read + u" ORDER BY M%1.コード"_s.arg(name)}));
    }
}

TEST_F(MasterListWindowTest, PositionsAreReadWithoutATermWhereTheCallerHasNone) {
    installation.General().Execute(u"DROP TABLE M役職"_s);
    EXPECT_EQ(Shown(u"wnd役職一覧"_s), QStringList());
    EXPECT_EQ(History(),
              QStringList{u"エラー no such table: M役職SELECT コード,名称 FROM M役職 ORDER BY M役職.コード"_s});
}

TEST_F(MasterListWindowTest, MasterOfMoreThanAThousandRowsIsShownWhole) {
    installation.General().Execute(
        u"DELETE FROM M部門; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1001)"
        u" INSERT INTO M部門 (コード, 名称, 稼動状況区分) SELECT printf('%04d', i), '部門' || i, '1' FROM n"_s);
    const QStringList codes = Shown(u"wnd部門一覧"_s);
    EXPECT_EQ(codes.size(), 1001);
    EXPECT_EQ(codes.last(), u"1001"_s);
}

TEST_F(MasterListWindowTest, NullNamesLongNamesAndCodesWithLettersAreShownAsTheyAre) {
    installation.General().Execute(
        u"INSERT INTO M役職 (コード, 名称) VALUES ('A''', NULL), ('Ab', '%1')"_s.replace(u"%1"_s, QString(200, u'長')));
    Open(u"wnd役職一覧"_s, {[](const FormRobot& robot) {
             const auto place = robot.Codes().indexOf(u"A'"_s);
             ASSERT_GE(place, 0);
             EXPECT_EQ(robot.Column(1).at(place), QString());
             EXPECT_EQ(robot.Column(1).at(robot.Codes().indexOf(u"Ab"_s)), QString(200, u'長'));
             robot.List().SetFocus();
             robot.TypeText(u"ab"_s);
             robot.Press(Qt::Key_Return);
         }});
    EXPECT_EQ(Result().Text(), u"Ab"_s);
}

TEST_F(MasterListWindowTest, KeysThatArriveWhileTheListIsLoadedChooseNoRow) {
    Open(u"wnd部門一覧"_s, {[](const FormRobot& robot) {
             ExpectDroppedKeys(robot, u"btn_画面クリア"_s);
             GoBack(robot);
         }});
    EXPECT_EQ(Result().Text(), QString());
}
