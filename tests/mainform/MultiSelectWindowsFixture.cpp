#include "mainform/MultiSelectWindowsFixture.h"

#include "globals/ProgramGlobals.h"
#include "inquiry/SelectionSource.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

void PickWindowsTest::Open(const PickDefinition& definition, const ModalScript::Work& work) {
    const ModalScript driver({[&](const FormRobot& hands) {
        EXPECT_EQ(hands.Window().Name(), definition.window);
        work(hands);
    }});
    Click(definition.button);
    EXPECT_EQ(driver.Opened(), 1) << definition.window.toStdString();
}

void PickWindowsTest::Tick(const PickDefinition& definition, const QStringList& codes) {
    Open(definition, [&](const FormRobot& hands) {
        for (const QString& code : codes) hands.ClickMarkOf(code);
        GoBack(hands);
    });
}

bool PickWindowsTest::Picked(const PickDefinition& definition) { return Globals().Flags.*definition.flag; }

const SelectionSource& PickWindowsTest::Source(const PickDefinition& definition) {
    return *Globals().SelectionWindows.value(definition.window);
}
