#include "platform/RuntimeError.h"
#include "screen/ListView.h"
#include "screen/modクライアント処理.h"
#include "selection/ListWindowFixture.h"

#include <QApplication>
#include <QHeaderView>
#include <QScreen>
#include <algorithm>

using namespace Qt::StringLiterals;

class LookupControllerTest : public ListWindowTest {
  protected:
    /// Events of the calling form, separated by blanks.
    QStringList events;

    void Watch() {
        const Form& form = Caller();
        Result().Change = [this] { events << u"text "_s + Result().Text(); };
        for (const QString& name : {u"開始コード"_s, u"終了コード"_s}) {
            Control& item = form.Item(name);
            item.LostFocus = [this, name] { events << u"-"_s + name; };
            item.GotFocus = [this, name, &form] {
                events << u"+"_s + name + (form.Enabled() ? u""_s : u" disabled"_s) + Globals().ListCondition;
            };
        }
    }
};

TEST_F(LookupControllerTest, ClickOnARowClosesAtOnceAndGoesOverTheResultItemToTheNext) {
    Watch();
    Open(u"wnd役職一覧"_s, u"M役職.コード >= '20'"_s, {[](const FormRobot& robot) {
             robot.ClickRow(1);
             EXPECT_FALSE(robot.Window().isVisible());
         }});
    EXPECT_EQ(events, (QStringList{u"text 25"_s, u"+開始コード"_s, u"-開始コード"_s, u"+終了コード"_s}));
    EXPECT_TRUE(Caller().Enabled());
    EXPECT_EQ(Globals().ListCondition, QString());
}

TEST_F(LookupControllerTest, EnterOnTheSelectedRowDoesTheSame) {
    Watch();
    Open(u"wnd役職一覧"_s, {[](const FormRobot& robot) {
             robot.List().SetFocus();
             robot.Press(Qt::Key_Down);
             robot.Press(Qt::Key_Down);
             robot.Press(Qt::Key_Enter);
         }});
    EXPECT_EQ(events, (QStringList{u"text 20"_s, u"+開始コード"_s, u"-開始コード"_s, u"+終了コード"_s}));
}

TEST_F(LookupControllerTest, BackEscAndTheCloseBoxLeaveTheItemAsItWasAndOnIt) {
    Result().SetText(u"5"_s);
    Watch();
    const Works ways = {[](const FormRobot& robot) { GoBack(robot); },
                        [](const FormRobot& robot) { robot.Press(Qt::Key_Escape); },
                        [](const FormRobot& robot) { robot.Window().close(); }};
    for (const ModalScript::Callback& way : ways) {
        events.clear();
        Open(u"wnd部門一覧"_s, u"M部門.コード >= '5'"_s, {way});
        EXPECT_EQ(events, QStringList{u"+開始コード"_s});
        EXPECT_EQ(Result().Text(), u"5"_s);
        EXPECT_TRUE(Caller().Enabled());
        EXPECT_EQ(Globals().ListCondition, QString());
        EXPECT_EQ(Caller().ActiveControl(), &Result());
    }
}

TEST_F(LookupControllerTest, NextItemThatCannotTakeTheFocusIsPassedBy) {
    auto* third = new InputItem(Caller(), Caller(), u"xField"_s, u"三番目"_s, -1, {});
    third->move(0, 200);
    third->show();
    Caller().Item(u"終了コード"_s).SetEnabled(false);
    Open(u"wnd役職一覧"_s, {[](const FormRobot& robot) { robot.ClickRow(0); }});
    EXPECT_EQ(Caller().ActiveControl(), third);
}

TEST_F(LookupControllerTest, EscLooksForNoOtherNextItem) {
    auto* third = new InputItem(Caller(), Caller(), u"xField"_s, u"三番目"_s, -1, {});
    third->move(0, 200);
    third->show();
    Control& next = Caller().Item(u"終了コード"_s);
    next.SetEnabled(false);
    Open(u"wnd役職一覧"_s, {[](const FormRobot& robot) { robot.Press(Qt::Key_Escape); }});
    EXPECT_EQ(Globals().ListNextItem, &next);
    EXPECT_EQ(Caller().ActiveControl(), &Result());
}

TEST_F(LookupControllerTest, OnlyUnderTheProgramOfItsMasterIsAWindowUnloaded) {
    const QList<QStringList> windows = {{u"wnd担当者一覧"_s, u"frm要員台帳更新"_s},
                                        {u"wndセクション一覧"_s, u"frm班台帳更新"_s},
                                        {u"wnd部門一覧"_s, u"frm組織台帳更新"_s},
                                        {u"wnd役職一覧"_s, u"frm職位台帳更新"_s}};
    for (const QStringList& window : windows) {
        for (const QStringList& other : windows) {
            UseMainForm(other[1]);
            Open(window[0], {[](const FormRobot& robot) { robot.ClickRow(0); }});
            EXPECT_EQ(IsFormLoaded(window[0]), window[1] != other[1])
                << window[0].toStdString() << " under " << other[1].toStdString();
            EXPECT_NE(Result().Text(), QString());
        }
        UseMainForm(u"frm要員名簿照会"_s);
        Open(window[0], {[](const FormRobot& robot) { robot.Press(Qt::Key_Escape); }});
        EXPECT_TRUE(IsFormLoaded(window[0]));
    }
}

TEST_F(LookupControllerTest, ColumnTitleSortsAndFlipsAndChoosesNothing) {
    Open(u"wnd役職一覧"_s, {[](const FormRobot& robot) {
             const QStringList byQuery = robot.Codes();
             QStringList reversed = byQuery;
             std::reverse(reversed.begin(), reversed.end());
             robot.ClickTitle(0);  // SortKey already, so the order flips
             EXPECT_EQ(robot.Codes(), reversed);
             robot.ClickTitle(1);  // another column keeps the present order
             EXPECT_EQ(robot.List().SortKey(), 1);
             EXPECT_EQ(robot.List().SortOrder(), Qt::DescendingOrder);
             EXPECT_TRUE(robot.List().header()->isSortIndicatorShown());
             robot.ClickTitle(1);
             EXPECT_EQ(robot.List().SortOrder(), Qt::AscendingOrder);
             robot.ClickTitle(0);
             EXPECT_EQ(robot.Codes(), byQuery);
             EXPECT_TRUE(robot.Window().isVisible());
             robot.Press(Qt::Key_Escape);
         }});
}

TEST_F(LookupControllerTest, NewSearchHasTheOrderOfItsQuery) {
    Open(u"wnd部門一覧"_s, {[](const FormRobot& robot) {
             const QStringList byQuery = robot.Codes();
             robot.ClickTitle(0);
             ASSERT_NE(robot.Codes(), byQuery);
             robot.Click(u"btn_画面クリア"_s);
             EXPECT_EQ(robot.Codes(), byQuery);
             GoBack(robot);
         }});
}

TEST_F(LookupControllerTest, WindowOpensOverItsOwnerAndNeverOffTheScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QPoint& place : {QPoint(40, 30), QPoint(-700, -500), screen.bottomRight()}) {
        Caller().move(place);
        Open(u"wnd部門一覧"_s, {[&](const FormRobot& robot) {
                 const Form& window = robot.Window();
                 EXPECT_TRUE(screen.contains(window.geometry())) << place.x() << ',' << place.y();
                 if (place.x() != 40) return GoBack(robot);
                 EXPECT_LE(qAbs(window.geometry().center().x() - Caller().geometry().center().x()), 2);
                 GoBack(robot);
             }});
    }
}

TEST_F(LookupControllerTest, UnknownNameThrows) { EXPECT_THROW(ShowListWindow(u"wnd何か"_s), platform::RuntimeError); }
