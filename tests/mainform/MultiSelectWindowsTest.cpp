#include <QHeaderView>

#include "globals/ProgramGlobals.h"
#include "inquiry/SearchConditions.h"
#include "mainform/MultiSelectWindowsFixture.h"
#include "screen/Form.h"
#include "screen/ListView.h"
#include "screen/modクライアント処理.h"

using namespace Qt::StringLiterals;

namespace {

const QColor kGreen(0, 192, 0);
const QColor kDarkBlue(0, 0, 128);

void HighlightAll(const FormRobot& robot) {
    robot.List().SetFocus();
    robot.Press(Qt::Key_A, Qt::ControlModifier);
}

void ExpectInside(const Form& window) {
    for (const Control* control : window.Controls()) {
        const QWidget& widget = control->Widget();
        EXPECT_TRUE(window.rect().contains(widget.geometry())) << control->Name().toStdString();
        for (const Control* other : window.Controls()) {
            if (other == control || !widget.isVisible() || !other->Widget().isVisible()) continue;
            EXPECT_FALSE(widget.geometry().intersects(other->Widget().geometry()))
                << control->Name().toStdString() << " lies on " << other->Name().toStdString();
        }
    }
}

}  // namespace

TEST_F(MultiSelectTest, WindowsHaveTheirTitlesButtonsAndColumns) {
    struct WindowLayout {
        QString caption, title, list;
        QList<int> widths;
    };
    const QList<WindowLayout> layouts = {
        {u"部門選択一覧"_s, u"部門一覧"_s, u"List部門"_s, {67, 153}},  // 1000 and 2300 twips
        {u"セクション選択一覧"_s, u"セクション一覧"_s, u"Listセクション"_s, {67, 153}},
        {u"役職選択一覧"_s, u"役職一覧"_s, u"List役職"_s, {50, 167}},                        // 750 and 2500
        {u"担当者選択一覧"_s, u"担当者一覧"_s, u"List担当者"_s, {70, 167, 153, 153, 153}}};  // 1050
    Start();
    for (size_t i = 0; i < 4; ++i) {
        const WindowLayout& expected = layouts[static_cast<int>(i)];
        Open(RangeConditions()[i], [&](const FormRobot& robot) {
            EXPECT_EQ(robot.Window().windowTitle(), expected.caption);
            EXPECT_EQ(robot.Item(u"prg_ttl"_s).Caption(), expected.title);
            EXPECT_EQ(robot.List().Name(), expected.list);
            for (int column = 0; column < expected.widths.size(); ++column)
                EXPECT_EQ(robot.List().header()->sectionSize(column), expected.widths[column]);
            EXPECT_EQ(robot.Item(u"btn_複数選択"_s).Caption(), u"複数選択"_s);
            EXPECT_EQ(robot.Item(u"btn_選択クリア"_s).Caption(), u"選択ｸﾘｱ"_s);
            EXPECT_EQ(robot.Window().Find(u"btn_全て選択"_s) != nullptr, i == 3);
            EXPECT_EQ(robot.Window().Find(u"稼動状況区分"_s) != nullptr, i < 2);
            EXPECT_EQ(robot.Window().Find(u"btn_画面クリア"_s) != nullptr, i != 2);
            EXPECT_TRUE(robot.MarkedCodes().isEmpty());
            ExpectInside(robot.Window());
            GoBack(robot);
        });
    }
}

TEST_F(MultiSelectTest, ControlsAreOfTheClassesAndNumbersOfTheDesign) {
    using Counts = QHash<QString, int>;
    const Counts status = {
        {u"xNum"_s, 1}, {u"ComboBox"_s, 1}, {u"SSCommand"_s, 4}, {u"SSPanel"_s, 2}, {u"ListView"_s, 1}};
    const Counts positions = {{u"SSCommand"_s, 3}, {u"SSPanel"_s, 1}, {u"ListView"_s, 1}};
    const Counts staff = {{u"xField"_s, 7},     {u"xNum"_s, 2},    {u"ComboBox"_s, 2}, {u"xLabel"_s, 2},
                          {u"SSCommand"_s, 12}, {u"SSPanel"_s, 3}, {u"ListView"_s, 1}};
    const QList<Counts> expected = {status, status, positions, staff};
    Start();
    for (int i = 0; i < expected.size(); ++i) {
        Open(RangeConditions()[static_cast<size_t>(i)], [&](const FormRobot& robot) {
            Counts count;
            for (const Control* control : robot.Window().Controls()) ++count[control->TypeName()];
            EXPECT_EQ(count, expected[i]);
            GoBack(robot);
        });
    }
}

TEST_F(MultiSelectTest, OpeningDisablesTheMainFormAndSetsResultAndNextItem) {
    Start();
    for (const RangeCondition& window : RangeConditions()) {
        Globals().ListCondition = u"M役職.コード >= '90'"_s;
        Open(window, [&](const FormRobot& robot) {
            EXPECT_FALSE(MainForm().Enabled());
            EXPECT_EQ(Globals().ListCondition, QString());
            EXPECT_EQ(Globals().ListResultItem, &Item(window.selection.button));
            EXPECT_EQ(Globals().ListNextItem, &Item(window.fromItem));
            EXPECT_GT(robot.Codes().size(), 5);
            GoBack(robot);
        });
        EXPECT_TRUE(MainForm().Enabled());
    }
}

TEST_F(MultiSelectTest, MarksTurnTheButtonGreenAndDisableTheRangeThatTheyReplace) {
    Start();
    // The next items are disabled by then, so the focus moves to the next enabled one.
    QStringList next = {u"開始セクションコード"_s, u"開始役職コード"_s, u"開始担当者コード"_s, u"表示順区分"_s};
    for (const RangeCondition& window : RangeConditions()) {
        Open(window, [](const FormRobot& robot) {
            robot.ClickMark(1);
            GoBack(robot);
        });
        EXPECT_TRUE(Picked(window));
        EXPECT_EQ(Item(window.selection.button).ForeColor(), kGreen);
        EXPECT_TRUE(Item(window.selection.button).Enabled());
        EXPECT_FALSE(Item(window.fromItem).Enabled());
        EXPECT_FALSE(Item(QString(window.fromItem).replace(u"開始"_s, u"終了"_s)).Enabled());
        EXPECT_EQ(Focused(), next.takeFirst());
    }
}

TEST_F(MultiSelectTest, FocusSkipsReplacedRanges) {
    Start();
    Tick(Sections(), {u"011"_s});
    Tick(Departments(), {u"010"_s});
    EXPECT_EQ(Focused(), u"開始役職コード"_s);
}

TEST_F(MultiSelectTest, NoMarkLeavesTheRangeInUseAndGivesItTheFocus) {
    Start();
    for (const RangeCondition& window : RangeConditions()) {
        Open(window, GoBack);
        EXPECT_FALSE(Picked(window));
        EXPECT_EQ(Item(window.selection.button).ForeColor(), kDarkBlue);
        EXPECT_EQ(Focused(), window.fromItem);
    }
}

TEST_F(MultiSelectTest, StaffWindowIsUnloadedWithoutMarksWhileTheOthersAreHidden) {
    Start();
    for (const RangeCondition& window : RangeConditions()) {
        Open(window, GoBack);
        const bool stays = window.selection.window != u"wnd担当者選択一覧";
        EXPECT_EQ(IsFormLoaded(window.selection.window), stays) << window.selection.window.toStdString();
        EXPECT_EQ(Globals().SelectionWindows.contains(window.selection.window), stays);
    }
}

TEST_F(MultiSelectTest, StaffWindowKeepsItsConditionsOnlyWithASelection) {
    Start();
    Open(People(), [](const FormRobot& robot) {
        robot.Enter(u"名称"_s, u"田"_s);
        robot.Click(u"btn_名称検索"_s);
        robot.ClickMark(0);
        GoBack(robot);
    });
    Open(People(), [](const FormRobot& robot) {
        EXPECT_EQ(robot.Text(u"名称"_s), u"田"_s);
        EXPECT_EQ(robot.MarkedCodes(), QStringList{robot.Codes().first()});
        robot.ClickMark(0);
        GoBack(robot);
    });
    EXPECT_FALSE(Picked(People()));
    Open(People(), [](const FormRobot& robot) {
        EXPECT_EQ(robot.Text(u"名称"_s), QString());
        GoBack(robot);
    });
}

TEST_F(MultiSelectTest, SecondOpeningKeepsListStatusAndChecks) {
    Start();
    QStringList left;
    Open(Departments(), [&](const FormRobot& robot) {
        robot.Click(u"稼動状況区分"_s);
        robot.TypeText(u"2"_s);
        robot.Click(u"btn_画面クリア"_s);
        robot.ClickTitle(1);
        robot.ClickMarkOf(u"120"_s);
        left = robot.Codes();
        GoBack(robot);
    });
    Open(Departments(), [&](const FormRobot& robot) {
        EXPECT_EQ(robot.Codes(), left);
        EXPECT_EQ(robot.Text(u"稼動状況区分名称"_s), u"全て"_s);
        EXPECT_EQ(robot.MarkedCodes(), QStringList{u"120"_s});
        GoBack(robot);
    });
}

TEST_F(MultiSelectTest, EveryWayOfClosingSetsTheFlag) {
    const QList<ModalScript::Callback> waysOut = {
        GoBack,
        [](const FormRobot& robot) { robot.Press(Qt::Key_Escape); },
        [](const FormRobot& robot) {
            robot.Item(u"btn_複数選択"_s).SetFocus();
            robot.Press(Qt::Key_Escape);
        },
        [](const FormRobot& robot) { robot.Window().close(); },
    };
    Start();
    for (const RangeCondition& window : RangeConditions()) {
        for (const ModalScript::Callback& leave : waysOut) {
            Open(window, [&](const FormRobot& robot) {
                robot.ClickMark(0);
                EXPECT_FALSE(Picked(window)) << "only the way out sets it";
                leave(robot);
            });
            EXPECT_TRUE(Picked(window));
            EXPECT_TRUE(MainForm().Enabled());
            Click(u"btn_画面クリア"_s);
        }
    }
}

TEST_F(MultiSelectTest, EnterAndAClickOnARowChooseNothing) {
    Start();
    for (const RangeCondition& window : RangeConditions()) {
        Open(window, [](const FormRobot& robot) {
            robot.ClickRow(1);
            robot.Press(Qt::Key_Return);
            EXPECT_TRUE(robot.Window().isVisible());
            EXPECT_TRUE(robot.MarkedCodes().isEmpty());
            GoBack(robot);
        });
        EXPECT_FALSE(Picked(window));
    }
}

TEST_F(MultiSelectTest, SpaceChecksTheCurrentRowInAnyColumn) {
    Start();
    Open(Departments(), [](const FormRobot& robot) {
        ListView& list = robot.List();
        const QRect name = list.visualRect(list.model()->index(2, 1));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, name.center());
        robot.Press(Qt::Key_Space);
        EXPECT_EQ(robot.MarkedCodes(), QStringList{u"030"_s});
        robot.Press(Qt::Key_Down);
        robot.Press(Qt::Key_Space);
        EXPECT_EQ(robot.MarkedCodes(), (QStringList{u"030"_s, u"040"_s}));
        robot.Press(Qt::Key_Space);
        EXPECT_EQ(robot.MarkedCodes(), QStringList{u"030"_s});
        GoBack(robot);
    });
}

TEST_F(MultiSelectTest, KeysAloneMarkSeveralHighlightedRows) {
    Start();
    Open(Positions(), [](const FormRobot& robot) {
        EXPECT_EQ(robot.Focused(), u"List役職"_s);
        robot.Press(Qt::Key_Home);
        robot.Press(Qt::Key_Down, Qt::ShiftModifier);
        robot.Press(Qt::Key_Down, Qt::ControlModifier);
        robot.Press(Qt::Key_Down, Qt::ControlModifier);
        robot.Press(Qt::Key_Space, Qt::ControlModifier);
        EXPECT_TRUE(robot.MarkedCodes().isEmpty()) << "Ctrl highlights and marks nothing";
        robot.Press(Qt::Key_Tab);
        EXPECT_EQ(robot.Focused(), u"btn_複数選択"_s);
        robot.Press(Qt::Key_Space);
        EXPECT_EQ(robot.MarkedCodes(), (QStringList{u"10"_s, u"20"_s, u"30"_s}));
        robot.Press(Qt::Key_Escape);
    });
    EXPECT_TRUE(Picked(Positions()));
}

TEST_F(MultiSelectTest, CtrlHighlightsRowsAndOpensNoLookup) {
    Start();
    Open(Departments(), [](const FormRobot& robot) {
        robot.ClickRow(0);
        robot.Press(Qt::Key_Control);
        robot.ClickRow(2, Qt::ControlModifier);
        robot.ClickRow(4, Qt::ControlModifier);
        robot.ClickRow(2, Qt::ControlModifier);
        robot.Click(u"btn_複数選択"_s);
        EXPECT_EQ(robot.MarkedCodes(), (QStringList{u"010"_s, u"050"_s}));
        GoBack(robot);
    });
}

TEST_F(MultiSelectTest, HighlightedRowsAreMarkedBesideThoseThatAreMarkedAlready) {
    Start();
    Open(Sections(), [](const FormRobot& robot) {
        robot.ClickMarkOf(u"102"_s);
        robot.ClickRow(1);
        robot.ClickRow(3, Qt::ShiftModifier);
        robot.Click(u"btn_複数選択"_s);
        EXPECT_EQ(robot.MarkedCodes(), (QStringList{u"012"_s, u"021"_s, u"022"_s, u"102"_s}));
        robot.Click(u"btn_複数選択"_s);
        EXPECT_EQ(robot.MarkedCodes().size(), 4) << "marks of highlighted rows stay";
        robot.Click(u"btn_選択クリア"_s);
        EXPECT_TRUE(robot.MarkedCodes().isEmpty());
        GoBack(robot);
    });
    EXPECT_FALSE(Picked(Sections()));
}

TEST_F(MultiSelectTest, AllCanBeMarkedAtOnceFromOneRowToFifty) {
    for (const auto& [count, enabled] : {std::pair{0, false}, {1, true}, {50, true}, {51, false}}) {
        installation.ReplaceStaff(count);
        Start();
        Open(People(), [&, wanted = count, on = enabled](const FormRobot& robot) {
            EXPECT_EQ(robot.Codes().size(), wanted);
            EXPECT_EQ(robot.Item(u"btn_全て選択"_s).Enabled(), on) << wanted;
            robot.Click(u"btn_全て選択"_s);
            EXPECT_EQ(robot.MarkedCodes().size(), on ? wanted : 0);
            GoBack(robot);
        });
        EXPECT_EQ(Picked(People()), enabled);
        TearDown();
        ResetGlobals();
    }
}

TEST_F(MultiSelectTest, SmallerListOfALaterSearchCanBeMarkedAtOnce) {
    installation.ReplaceStaff(60);
    Start();
    Open(People(), [](const FormRobot& robot) {
        EXPECT_FALSE(robot.Item(u"btn_全て選択"_s).Enabled());
        robot.Enter(u"コード"_s, u"58"_s);
        robot.Click(u"btn_コード検索"_s);
        robot.Click(u"btn_全て選択"_s);
        EXPECT_EQ(robot.MarkedCodes(), (QStringList{u"00058"_s, u"00059"_s, u"00060"_s}));
        GoBack(robot);
    });
}

TEST_F(MultiSelectTest, NoticeStaysHiddenAtAThousandRowsAndBeyond) {
    for (const int count : {1000, 1001}) {
        installation.ReplaceStaff(count);
        Start();
        Open(People(), [](const FormRobot& robot) {
            EXPECT_EQ(robot.Codes().size(), 1000);
            EXPECT_FALSE(robot.Item(u"lab_注意"_s).Visible());
            GoBack(robot);
        });
        TearDown();
        ResetGlobals();
    }
}

TEST_F(MultiSelectTest, LaterSearchDropsAllMarksEvenWhenTheSameRowsReturn) {
    Start();
    Open(People(), [](const FormRobot& robot) {
        const QStringList before = robot.Codes();
        robot.ClickMark(0);
        robot.ClickMark(3);
        robot.Click(u"btn_複合検索"_s);
        EXPECT_EQ(robot.Codes(), before);
        EXPECT_TRUE(robot.MarkedCodes().isEmpty());
        GoBack(robot);
    });
    EXPECT_FALSE(Picked(People()));
}

TEST_F(MultiSelectTest, OnlyTheButtonAppliesAChangedStatus) {
    Start();
    Tick(Departments(), {u"010"_s});
    Open(Departments(), [](const FormRobot& robot) {
        const QStringList before = robot.Codes();
        robot.Click(u"稼動状況区分"_s);
        robot.TypeText(u"0"_s);
        EXPECT_EQ(robot.Codes(), before);
        EXPECT_EQ(robot.MarkedCodes(), QStringList{u"010"_s});
        robot.Click(u"btn_画面クリア"_s);
        EXPECT_EQ(robot.Codes(), (QStringList{u"110"_s, u"120"_s}));
        EXPECT_TRUE(robot.MarkedCodes().isEmpty());
        EXPECT_EQ(robot.Focused(), u"List部門"_s);
        EXPECT_TRUE(Picked(Departments())) << "the flag changes only when the window closes";
        EXPECT_EQ(Source(Departments()).BuildSelectionCondition(u"M担当者"_s, u"部門コード"_s), QString());
        GoBack(robot);
    });
    EXPECT_FALSE(Picked(Departments()));
    EXPECT_TRUE(Item(u"開始部門コード"_s).Enabled());
}

TEST_F(MultiSelectTest, MarksGoWithTheirRowsWhenTheListIsSorted) {
    Start();
    Open(Positions(), [](const FormRobot& robot) {
        robot.ClickMarkOf(u"20"_s);
        robot.ClickMarkOf(u"90"_s);
        robot.ClickTitle(0);
        EXPECT_EQ(robot.MarkedCodes(), (QStringList{u"90"_s, u"20"_s}));
        GoBack(robot);
    });
    EXPECT_EQ(Source(Positions()).BuildSelectionCondition(u"M担当者"_s, u"役職コード"_s),
              u"(M担当者.役職コード = '90' OR M担当者.役職コード = '20')"_s);
}

TEST_F(MultiSelectTest, SelectionInWordsNamesTheMarkedRowsAsTheMasterHasThemNow) {
    installation.ReplaceStaff(3);
    Start();
    Tick(Departments(), {u"010"_s, u"030"_s});
    Tick(Sections(), {u"011"_s});
    Tick(Positions(), {u"20"_s, u"30"_s});
    Tick(People(), {u"00001"_s, u"00003"_s});
    installation.General().Execute(u"UPDATE M部門 SET 名称 = '財務部' WHERE コード = '030'"_s);
    EXPECT_EQ(Source(Departments()).DescribeSelection(), u"部門：総務部,財務部"_s);
    EXPECT_EQ(Source(Sections()).DescribeSelection(), u"セクション：総務課"_s);
    EXPECT_EQ(Source(Positions()).DescribeSelection(), u"役職：部長,課長"_s);
    EXPECT_EQ(Source(People()).DescribeSelection(), u"担当者：氏名1,氏名3"_s);
}

TEST_F(MultiSelectTest, MissingNamesAreLeftOutAndTheFirstLeavesItsComma) {
    installation.ReplaceStaff(3);
    Start();
    Tick(People(), {u"00001"_s, u"00002"_s, u"00003"_s});
    Tick(Departments(), {u"010"_s, u"020"_s});
    installation.General().Execute(
        u"DELETE FROM M担当者 WHERE コード = '00002'; DELETE FROM M部門 WHERE コード = '010'"_s);
    EXPECT_EQ(Source(People()).DescribeSelection(), u"担当者：氏名1,氏名3"_s);
    EXPECT_EQ(Source(Departments()).DescribeSelection(), u",人事部"_s);
    installation.General().Execute(u"DELETE FROM M担当者 WHERE コード = '00001'"_s);
    EXPECT_EQ(Source(People()).DescribeSelection(), u",氏名3"_s);
}

TEST_F(MultiSelectTest, UnreadableMastersAreLoggedSilently) {
    installation.ReplaceStaff(3);
    Start();
    const QList<QStringList> masters = {
        {u"M部門"_s, u"010"_s}, {u"Mセクション"_s, u"011"_s}, {u"M役職"_s, u"20"_s}, {u"M担当者"_s, u"00002"_s}};
    for (int i = 0; i < masters.size(); ++i) Tick(RangeConditions()[static_cast<size_t>(i)], {masters[i][1]});
    QStringList statements;
    for (int i = 0; i < masters.size(); ++i) {
        const QString &table = masters[i][0], &code = masters[i][1];
        installation.General().Execute(u"DROP TABLE "_s + table);
        EXPECT_EQ(Source(RangeConditions()[static_cast<size_t>(i)]).DescribeSelection(), QString());
        statements << u"エラー no such table: %1SELECT * FROM %1 WHERE コード = ''%2''"_s.arg(table, code);
    }
    EXPECT_EQ(History().filter(u"エラー "_s), statements);
}

TEST_F(MultiSelectTest, NothingMarkedSaysNothing) {
    Start();
    Open(Departments(), GoBack);
    EXPECT_EQ(Source(Departments()).DescribeSelection(), QString());
    EXPECT_EQ(Source(Departments()).BuildSelectionCondition(u"M担当者"_s, u"部門コード"_s), QString());
}

TEST_F(MultiSelectTest, NestedLookupSetsItsCodeAndTheWindowStaysOpen) {
    Start();
    const ModalScript driver({[&](const FormRobot& robot) {
                                  robot.Item(u"部門コード"_s).SetFocus();
                                  robot.Press(Qt::Key_Control);
                                  robot.Press(Qt::Key_Control);
                                  EXPECT_EQ(robot.Text(u"部門コード"_s), u"030"_s);
                                  EXPECT_EQ(Globals().ListNextItem, &Item(u"開始担当者コード"_s));
                                  GoBack(robot);
                              },
                              [](const FormRobot& robot) { robot.ClickRow(2); }});
    Click(People().selection.button);
    EXPECT_EQ(driver.Opened(), 2);
    EXPECT_EQ(Focused(), u"開始担当者コード"_s);
}

TEST_F(MultiSelectTest, ButtonsAreIgnoredWhileBusy) {
    Start();
    for (bool ProgramGlobals::*const flag : {&ProgramGlobals::ScreenPainting, &ProgramGlobals::LinkWaiting}) {
        Globals().*flag = true;
        for (const RangeCondition& window : RangeConditions()) {
            Click(window.selection.button);
            EXPECT_FALSE(IsFormLoaded(window.selection.window));
        }
        Globals().*flag = false;
    }
}

TEST_F(MultiSelectTest, EachWindowLiesWholeOnALowScreen) {
    Start({}, 768);
    for (const RangeCondition& window : RangeConditions()) {
        Open(window, [](const FormRobot& robot) {
            EXPECT_LE(robot.Window().WindowHeight(), 768 * kTwipsPerPixel);
            EXPECT_LE(robot.Window().width(), 1024);
            ExpectInside(robot.Window());
            GoBack(robot);
        });
    }
}

TEST_F(MultiSelectTest, ManyHighlightedRowsAreMarkedAtOnce) {
    installation.ReplaceStaff(1000);
    Start();
    Open(People(), [](const FormRobot& robot) {
        HighlightAll(robot);
        robot.Click(u"btn_複数選択"_s);
        EXPECT_EQ(robot.MarkedCodes().size(), 1000);
        robot.Click(u"btn_選択クリア"_s);
        EXPECT_TRUE(robot.MarkedCodes().isEmpty());
        GoBack(robot);
    });
}
