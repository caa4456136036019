#include "mainform/MultiSelectWindowsFixture.h"

#include "globals/ProgramGlobals.h"
#include "inquiry/SelectionSource.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

void MultiSelectTest::Open(const MultiSelectDefinition& definition, const ModalScript::Callback& callback) {
    const ModalScript driver({[&](const FormRobot& robot) {
        EXPECT_EQ(robot.Window().Name(), definition.window);
        callback(robot);
    }});
    Click(definition.button);
    EXPECT_EQ(driver.Opened(), 1) << definition.window.toStdString();
}

void MultiSelectTest::Tick(const MultiSelectDefinition& definition, const QStringList& codes) {
    Open(definition, [&](const FormRobot& robot) {
        for (const QString& code : codes) robot.ClickMarkOf(code);
        GoBack(robot);
    });
}

bool MultiSelectTest::Picked(const MultiSelectDefinition& definition) { return Globals().Flags.*definition.flag; }

const SelectionSource& MultiSelectTest::Source(const MultiSelectDefinition& definition) {
    return *Globals().SelectionWindows.value(definition.window);
}
