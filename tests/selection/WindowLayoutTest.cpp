#include "selection/ListWindowFixture.h"
#include "selection/wnd担当者複数指定.h"
#include "support/FormLayout.h"

using namespace Qt::StringLiterals;

namespace {

class WindowLayout : public ListWindowTest {
  protected:
    void ExpectLayoutOf(const QString& window) {
        Open(window, {[&](const FormRobot& robot) {
                 ExpectLayout(robot.Window(), u"selection"_s);
                 robot.Window().UnloadForm();
             }});
    }
};

}  // namespace

TEST_F(WindowLayout, OfTheMasterLists) {
    for (const QString& window : {u"wnd部門一覧"_s, u"wndセクション一覧"_s, u"wnd役職一覧"_s}) ExpectLayoutOf(window);
}

TEST_F(WindowLayout, OfTheStaffList) { ExpectLayoutOf(u"wnd担当者一覧"_s); }

TEST_F(WindowLayout, OfTheMultiSelectWindows) {
    for (const QString& window :
         {u"wnd部門選択一覧"_s, u"wndセクション選択一覧"_s, u"wnd役職選択一覧"_s, u"wnd担当者選択一覧"_s})
        ExpectLayoutOf(window);
}

TEST_F(WindowLayout, OfTheValueWindows) {
    for (const TextCondition& condition : TextConditions()) {
        wnd担当者複数指定 window(condition);
        window.ShowModeless();
        ExpectLayout(window, u"selection"_s);
    }
}
