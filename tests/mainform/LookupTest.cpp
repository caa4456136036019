#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "screen/ListView.h"
#include "screen/modクライアント処理.h"
#include "support/MainFormFixture.h"
#include "support/ModalScript.h"

using namespace Qt::StringLiterals;

class LookupTest : public MainFormTest {
  protected:
    using Works = QList<ModalScript::Callback>;

    static void Esc(const FormRobot& robot) { robot.Press(Qt::Key_Escape); }

    /// Presses Ctrl in a head item; the callbacks close the windows that appear.
    void OpenByCtrl(const QString& item, const Works& works) {
        const ModalScript driver(works);
        Item(item).SetFocus();
        Press(Qt::Key_Control);
    }
    void OpenByDoubleClick(const QString& item, const Works& works) {
        const ModalScript driver(works);
        Hands().DoubleClick(item);
    }
    /// Chooses the row of a code.
    static ModalScript::Callback Choose(const QString& code) {
        return [code](const FormRobot& robot) {
            const auto row = robot.Codes().indexOf(code);
            ASSERT_GE(row, 0) << code.toStdString();
            robot.ClickRow(static_cast<int>(row));
        };
    }
};

TEST_F(LookupTest, CtrlAndDoubleClickOpenTheLookupOfEachRangeItem) {
    struct Opening {
        QString item, text, window, condition, next;
    };
    const QList<Opening> openings = {
        {u"開始部門コード"_s, u"5"_s, u"wnd部門一覧"_s, u"M部門.コード >= '5'"_s, u"終了部門コード"_s},
        {u"開始部門コード"_s, u""_s, u"wnd部門一覧"_s, u""_s, u"終了部門コード"_s},
        {u"終了部門コード"_s, u"5"_s, u"wnd部門一覧"_s, u"M部門.コード >= ''"_s, u"開始セクションコード"_s},
        {u"開始セクションコード"_s, u"7"_s, u"wndセクション一覧"_s, u"Mセクション.コード >= '7'"_s,
         u"終了セクションコード"_s},
        {u"開始セクションコード"_s, u""_s, u"wndセクション一覧"_s, u""_s, u"終了セクションコード"_s},
        {u"終了セクションコード"_s, u"7"_s, u"wndセクション一覧"_s, u"Mセクション.コード >= ''"_s, u"開始役職コード"_s},
        {u"開始役職コード"_s, u"3"_s, u"wnd役職一覧"_s, u"M役職.コード >= '03'"_s, u"終了役職コード"_s},
        {u"開始役職コード"_s, u""_s, u"wnd役職一覧"_s, u""_s, u"終了役職コード"_s},
        {u"終了役職コード"_s, u"9"_s, u"wnd役職一覧"_s, u"M役職.コード >= ''"_s, u"開始担当者コード"_s},
        {u"開始担当者コード"_s, u"12"_s, u"wnd担当者一覧"_s, u"M担当者.コード >= '12'"_s, u"終了担当者コード"_s},
        {u"開始担当者コード"_s, u""_s, u"wnd担当者一覧"_s, u""_s, u"終了担当者コード"_s},
        {u"終了担当者コード"_s, u"12"_s, u"wnd担当者一覧"_s, u""_s, u"表示順区分"_s},
    };
    Start();
    // The first opening parses ListCondition; load all windows first, to see the condition that is passed.
    for (const QString& item :
         {u"開始部門コード"_s, u"開始セクションコード"_s, u"開始役職コード"_s, u"開始担当者コード"_s})
        OpenByCtrl(item, {Esc});
    for (const Opening& opening : openings) {
        const ModalScript::Callback record = [&](const FormRobot& robot) {
            EXPECT_EQ(robot.Window().Name(), opening.window);
            EXPECT_EQ(Globals().ListCondition, opening.condition) << opening.item.toStdString();
            EXPECT_EQ(Globals().ListResultItem, &Item(opening.item));
            EXPECT_EQ(Globals().ListNextItem, &Item(opening.next)) << opening.item.toStdString();
            EXPECT_FALSE(MainForm().Enabled());
            Esc(robot);
        };
        for (const bool byKey : {true, false}) {
            Item(u"検索名称"_s).SetFocus();
            for (const QString& start :
                 {u"開始部門コード"_s, u"開始セクションコード"_s, u"開始役職コード"_s, u"開始担当者コード"_s})
                Item(start).SetText(QString());
            Item(opening.item).SetText(opening.text);
            if (byKey)
                OpenByCtrl(opening.item, {record});
            else
                OpenByDoubleClick(opening.item, {record});
            EXPECT_TRUE(MainForm().Enabled());
            EXPECT_EQ(Focused(), opening.item);
        }
    }
}

TEST_F(LookupTest, EndItemReadsTheStartOfItsRange) {
    Start();
    for (const QString& item :
         {u"終了部門コード"_s, u"終了セクションコード"_s, u"終了役職コード"_s, u"終了担当者コード"_s})
        OpenByCtrl(item, {Esc});
    const QList<QStringList> ends = {
        {u"開始部門コード"_s, u"020"_s, u"終了部門コード"_s, u"M部門.コード >= '020'"_s},
        {u"開始セクションコード"_s, u"021"_s, u"終了セクションコード"_s, u"Mセクション.コード >= '021'"_s},
        {u"開始役職コード"_s, u"20"_s, u"終了役職コード"_s, u"M役職.コード >= '20'"_s},
        {u"開始担当者コード"_s, u"00012"_s, u"終了担当者コード"_s, u"M担当者.コード >= '00012'"_s}};
    for (const QStringList& end : ends) {
        Enter(end[0], end[1]);
        OpenByCtrl(end[2], {[&](const FormRobot& robot) {
                       EXPECT_EQ(Globals().ListCondition, end[3]);
                       Esc(robot);
                   }});
    }
}

TEST_F(LookupTest, ChosenCodeIsAcceptedShownAndLeftForTheNextItem) {
    Start();
    OpenByCtrl(u"開始部門コード"_s, {Choose(u"040"_s)});
    EXPECT_EQ(Globals().Conditions.DepartmentFrom, u"040"_s);
    EXPECT_EQ(Focused(), u"終了部門コード"_s);
    OpenByDoubleClick(u"終了部門コード"_s, {Choose(u"020"_s)});
    EXPECT_EQ(Globals().Conditions.DepartmentTo, u"020"_s);
    EXPECT_EQ(Globals().Conditions.DepartmentFrom, u"020"_s) << "the bound just chosen drags the other along";
    EXPECT_EQ(Item(u"開始部門コード"_s).Text(), u"020"_s);
    EXPECT_EQ(Focused(), u"開始セクションコード"_s);
}

TEST_F(LookupTest, StartCodeFiltersPositionsButNotDepartments) {
    Start();
    Enter(u"開始部門コード"_s, u"050"_s);
    OpenByCtrl(u"開始部門コード"_s, {[](const FormRobot& robot) {
                   EXPECT_EQ(robot.Codes(), (QStringList{u"010"_s, u"020"_s, u"030"_s, u"040"_s, u"050"_s, u"060"_s,
                                                         u"070"_s, u"080"_s, u"090"_s, u"100"_s}));
                   EXPECT_EQ(robot.List().SelectedRow(), -1);
                   EXPECT_EQ(robot.Focused(), u"List部門"_s);
                   robot.Press(Qt::Key_Return);
                   EXPECT_TRUE(robot.Window().isVisible()) << "no row counts as chosen";
                   Esc(robot);
               }});
    EXPECT_EQ(Item(u"開始部門コード"_s).Text(), u"050"_s);
    Enter(u"開始役職コード"_s, u"30"_s);
    OpenByCtrl(u"開始役職コード"_s, {[](const FormRobot& robot) {
                   EXPECT_EQ(robot.Codes(), (QStringList{u"30"_s, u"40"_s, u"50"_s, u"90"_s}));
                   EXPECT_EQ(robot.List().SelectedRow(), -1);
                   Esc(robot);
               }});
    EXPECT_EQ(Item(u"開始役職コード"_s).Text(), u"30"_s);
}

TEST_F(LookupTest, KeysAloneFindAPosition) {
    Start();
    OpenByCtrl(u"終了役職コード"_s, {[](const FormRobot& robot) {
                   EXPECT_EQ(robot.Focused(), u"List役職"_s);
                   robot.TypeText(u"4"_s);
                   robot.Press(Qt::Key_Return);
               }});
    EXPECT_EQ(Globals().Conditions.PositionTo, u"40"_s);
    EXPECT_EQ(Focused(), u"開始担当者コード"_s);
}

TEST_F(LookupTest, StaffFoundByNameGoIntoTheRange) {
    installation.AddStaff(u"99990"_s, {{u"氏名"_s, u"探索　対象"_s}});
    Start();
    OpenByCtrl(u"開始担当者コード"_s, {[](const FormRobot& robot) {
                   EXPECT_EQ(robot.Focused(), u"コード"_s);
                   robot.Enter(u"名称"_s, u"探索"_s);
                   robot.Click(u"btn_名称検索"_s);
                   EXPECT_EQ(robot.Focused(), u"List担当者"_s);
                   robot.Press(Qt::Key_Return);
                   EXPECT_TRUE(robot.Window().isVisible()) << "no row is selected yet";
                   robot.Press(Qt::Key_Down);
                   robot.Press(Qt::Key_Return);
               }});
    EXPECT_EQ(Globals().Conditions.StaffFrom, u"99990"_s);
    EXPECT_EQ(Focused(), u"終了担当者コード"_s);
}

TEST_F(LookupTest, EscLeavesAHalfTypedCodeUnacceptedUntilItIsLeft) {
    Start();
    const ModalScript driver({Esc});
    Type(u"開始部門コード"_s, u"7"_s);
    Press(Qt::Key_Control);
    EXPECT_EQ(Item(u"開始部門コード"_s).Text(), u"7"_s);
    EXPECT_EQ(Globals().Conditions.DepartmentFrom, u"000"_s);
    EXPECT_EQ(Focused(), u"開始部門コード"_s);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Globals().Conditions.DepartmentFrom, u"007"_s);
}

TEST_F(LookupTest, DoubleClickChecksTheRangeEndsFirstAndCtrlDoesNot) {
    Start();
    Globals().Conditions.DepartmentTo.clear();
    OpenByDoubleClick(u"開始役職コード"_s, {});
    EXPECT_EQ(Focused(), u"終了部門コード"_s);
    Globals().Conditions.DepartmentTo = u"999"_s;
    Item(u"開始役職コード"_s).SetFocus();
    Globals().Conditions.DepartmentTo.clear();
    const ModalScript driver({Esc});
    Press(Qt::Key_Control);
    EXPECT_EQ(driver.Opened(), 1);
}

TEST_F(LookupTest, OpensNothingWhileGuarded) {
    Start();
    Item(u"開始部門コード"_s).SetFocus();
    const ModalScript driver({});
    for (bool ProgramGlobals::*const flag : {&ProgramGlobals::ScreenPainting, &ProgramGlobals::LinkWaiting}) {
        Globals().*flag = true;
        Press(Qt::Key_Control);
        Hands().DoubleClick(u"開始部門コード"_s);
        Globals().*flag = false;
    }
    EXPECT_EQ(driver.Opened(), 0);
}

TEST_F(LookupTest, HiddenWindowShowsItsFirstListAgain) {
    Start();
    Enter(u"開始役職コード"_s, u"40"_s);
    const QStringList first = {u"40"_s, u"50"_s, u"90"_s};
    OpenByCtrl(u"開始役職コード"_s, {[&](const FormRobot& robot) {
                   EXPECT_EQ(robot.Codes(), first);
                   Esc(robot);
               }});
    Enter(u"開始役職コード"_s, u"90"_s);
    OpenByCtrl(u"開始役職コード"_s, {[&](const FormRobot& robot) {
                   EXPECT_EQ(robot.Codes(), first);
                   EXPECT_EQ(Globals().ListCondition, u"M役職.コード >= '90'"_s);
                   Esc(robot);
               }});
    Click(u"btn_画面クリア"_s);
    EXPECT_TRUE(IsFormLoaded(u"wnd役職一覧"_s)) << "a clear leaves the lookups alone";
}

TEST_F(LookupTest, NestedLookupIsWorkedByKeysInTwoSteps) {
    Start();
    OpenByCtrl(u"終了担当者コード"_s, {[](const FormRobot& robot) {
                                           robot.Click(u"名称"_s);
                                           robot.Press(Qt::Key_Tab);
                                           robot.Press(Qt::Key_Control);
                                           EXPECT_EQ(QApplication::activeModalWidget(), &robot.Window());
                                           robot.Press(Qt::Key_Control);
                                           EXPECT_EQ(robot.Text(u"部門名"_s), u"購買部"_s);
                                           robot.Press(Qt::Key_Space);  // btn_部門コード検索 has the focus
                                           ASSERT_FALSE(robot.Codes().isEmpty());
                                           robot.Press(Qt::Key_Home);
                                           robot.Press(Qt::Key_Return);
                                       },
                                       [](const FormRobot& robot) {
                                           EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(
                                               robot.Window().geometry()));
                                           robot.TypeText(u"060"_s);
                                           robot.Press(Qt::Key_Return);
                                       }});
    EXPECT_EQ(installation.General().Value(u"SELECT 部門コード FROM M担当者 WHERE コード = '"_s +
                                           Globals().Conditions.StaffTo + u'\''),
              u"060"_s);
    EXPECT_EQ(Focused(), u"表示順区分"_s);
}

TEST_F(LookupTest, DoubleClickOnARowDoesNotReachTheMainForm) {
    Start();
    int launches = 0;
    for (Control* control : MainForm().Controls()) {
        if (control->Name() == u"担当者名" || control->Name() == u"bak_dtla") control->Click = [&] { ++launches; };
    }
    QWidget& row = Item(u"担当者名"_s, 2).Widget();
    const QPointF place = row.mapToGlobal(QPointF(row.rect().center()));
    const auto send = [&](QWidget& widget, QEvent::Type type, quint64 time) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, widget.mapFromGlobal(place), place, Qt::LeftButton, held, Qt::NoModifier);
        event.setTimestamp(time);
        QApplication::sendEvent(&widget, &event);
    };
    OpenByCtrl(u"開始部門コード"_s, {[&](const FormRobot& robot) {
                   QWidget& view = *robot.List().viewport();
                   const QRect first = robot.List().visualRect(robot.List().model()->index(0, 0));
                   robot.Window().move(robot.Window().pos() + place.toPoint() - view.mapToGlobal(first.center()));
                   send(view, QEvent::MouseButtonPress, 1000);
                   send(view, QEvent::MouseButtonRelease, 1050);
               }});
    ASSERT_EQ(Globals().Conditions.DepartmentFrom, u"010"_s);
    send(row, QEvent::MouseButtonPress, 1200);
    send(row, QEvent::MouseButtonRelease, 1250);
    EXPECT_EQ(launches, 0);
    send(row, QEvent::MouseButtonPress, 2000);
    send(row, QEvent::MouseButtonRelease, 2050);
    EXPECT_EQ(launches, 1);
}
