#include "mainform/MultiSelectWindowsFixture.h"

#include "globals/ProgramGlobals.h"
#include "inquiry/SearchConditions.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

void MultiSelectTest::Open(const RangeCondition& definition, const ModalScript::Callback& callback) {
    const ModalScript driver({[&](const FormRobot& robot) {
        EXPECT_EQ(robot.Window().Name(), definition.selection.window);
        callback(robot);
    }});
    Click(definition.selection.button);
    EXPECT_EQ(driver.Opened(), 1) << definition.selection.window.toStdString();
}

void MultiSelectTest::Tick(const RangeCondition& definition, const QStringList& codes) {
    Open(definition, [&](const FormRobot& robot) {
        for (const QString& code : codes) robot.ClickMarkOf(code);
        GoBack(robot);
    });
}

bool MultiSelectTest::Picked(const RangeCondition& definition) { return Globals().Flags.*definition.selection.flag; }

const SelectionSource& MultiSelectTest::Source(const RangeCondition& definition) {
    return *Globals().SelectionWindows.value(definition.selection.window);
}
