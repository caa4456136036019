// The user makes list windows taller.

#include "screen/ListView.h"
#include "selection/ListWindowFixture.h"

using namespace Qt::StringLiterals;

namespace {

class ListWindowHeight : public ListWindowTest {
  protected:
    /// Places of all controls after the window's height has changed by `more` pixels.
    static QHash<QString, QRect> Places(Form& window, int more) {
        window.resize(window.width(), window.minimumHeight() + more);
        QHash<QString, QRect> places;
        for (const Control* control : window.Controls()) places.insert(control->Name(), control->Widget().geometry());
        return places;
    }

    /// Makes a window taller by three and a half rows, and less tall again.
    void ExpectListGrows(const QString& name) {
        Open(name, {[&](const FormRobot& robot) {
                 Form& window = robot.Window();
                 const int rows = 3 * robot.List().RowHeight(), more = rows + robot.List().RowHeight() / 2;
                 const QRect list = robot.List().geometry();
                 const auto before = Places(window, 0), taller = Places(window, more);
                 EXPECT_EQ(window.height(), window.minimumHeight() + more);
                 for (auto place = before.begin(); place != before.end(); ++place) {
                     QRect expected = place.value();
                     if (place.key() == robot.List().Name()) expected.setHeight(expected.height() + rows);
                     if (expected.top() > list.bottom()) expected.translate(0, more);
                     EXPECT_EQ(taller[place.key()], expected) << place.key().toStdString();
                 }
                 EXPECT_EQ(taller[u"btn_戻る"_s].top(), before[u"btn_戻る"_s].top() + more);
                 EXPECT_EQ(Places(window, 0), before);
                 GoBack(robot);
             }});
    }
};

}  // namespace

TEST_F(ListWindowHeight, ListsGrowByWholeRowsAndButtonsStayAtTheBottom) {
    for (const QString& window :
         {u"wnd部門一覧"_s, u"wnd役職一覧"_s, u"wnd担当者一覧"_s, u"wndセクション選択一覧"_s, u"wnd担当者選択一覧"_s})
        ExpectListGrows(window);
}

TEST_F(ListWindowHeight, OnlyTheHeightCanChangeAndNothingIsEverCutOff) {
    Open(u"wnd担当者選択一覧"_s, {[&](const FormRobot& robot) {
             const Form& window = robot.Window();
             EXPECT_EQ(window.minimumWidth(), window.maximumWidth());
             EXPECT_EQ(window.minimumHeight(), window.height());
             EXPECT_EQ(window.maximumHeight(), QWIDGETSIZE_MAX);
             GoBack(robot);
         }});
}

TEST_F(ListWindowHeight, HiddenWindowKeepsItsHeight) {
    int height = 0;
    Open(u"wnd部門一覧"_s, {[&](const FormRobot& robot) {
             robot.Window().resize(robot.Window().width(), robot.Window().height() + 200);
             height = robot.Window().height();
             EXPECT_EQ(height, robot.Window().minimumHeight() + 200);
             GoBack(robot);
         }});
    Open(u"wnd部門一覧"_s, {[&](const FormRobot& robot) {
             EXPECT_EQ(robot.Window().height(), height);
             GoBack(robot);
         }});
}
