#include "screen/ListView.h"
#include "selection/ListWindowFixture.h"
#include "selection/wnd担当者複数指定.h"
#include "support/FocusMarks.h"

using namespace Qt::StringLiterals;

namespace {

class FocusMarks : public ListWindowTest {
  protected:
    void ExpectMarksOf(const QString& window) {
        bool opened = false;
        Open(window, {[&](const FormRobot& robot) {
                 opened = true;
                 const QStringList stops = ExpectFocusMarks(robot.Window());
                 EXPECT_TRUE(stops.contains(robot.List().Name())) << window.toStdString();
                 EXPECT_TRUE(stops.contains(u"btn_戻る"_s)) << window.toStdString();
                 robot.Window().UnloadForm();
             }});
        EXPECT_TRUE(opened) << window.toStdString();
    }

    const SuiteLook look;
};

}  // namespace

TEST_F(FocusMarks, OfTheMasterLists) {
    for (const QString& window : {u"wnd部門一覧"_s, u"wndセクション一覧"_s, u"wnd役職一覧"_s}) ExpectMarksOf(window);
}

TEST_F(FocusMarks, OfTheStaffList) { ExpectMarksOf(u"wnd担当者一覧"_s); }

TEST_F(FocusMarks, OfTheMultiSelectWindows) {
    for (const QString& window :
         {u"wnd部門選択一覧"_s, u"wndセクション選択一覧"_s, u"wnd役職選択一覧"_s, u"wnd担当者選択一覧"_s})
        ExpectMarksOf(window);
}

TEST_F(FocusMarks, OfTheValueWindows) {
    for (const TextCondition& condition : TextConditions()) {
        wnd担当者複数指定 window(condition);
        window.ShowModeless();
        EXPECT_EQ(ExpectFocusMarks(window).size(), 13) << condition.item.toStdString();
    }
}
