#include "support/MainFormFixture.h"

#include <QtTest/QTest>

#include "frame/Mod要員名簿照会.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

void MainFormTest::TearDown() {
    delete Globals().MainForm;
    Globals().MainForm = nullptr;
    qDeleteAll(LoadedForms());  // windows opened from it are still loaded, hidden
}

void MainFormTest::Start(const QString& commandLine, int screenHeight) {
    services.system.applicationFolder = installation.ProgramFolder();
    services.system.commandLine = commandLine;
    services.system.screen = QSize(1280, screenHeight);
    Main();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Globals().MainForm));
}

Form& MainFormTest::MainForm() const { return *Globals().MainForm; }

FormRobot MainFormTest::Hands() const { return FormRobot(MainForm()); }

Control& MainFormTest::Item(const QString& name, int index) const { return MainForm().Item(name, index); }

void MainFormTest::Click(const QString& item, int index) { Hands().Click(item, index); }

void MainFormTest::Press(Qt::Key key) { Hands().Press(key); }

void MainFormTest::Type(const QString& item, const QString& text) { Hands().Type(item, text); }

void MainFormTest::Enter(const QString& item, const QString& text) { Hands().Enter(item, text); }

QString MainFormTest::Focused() const { return Hands().Focused(); }

QStringList MainFormTest::Column(const QString& item) const {
    QStringList texts;
    for (int position = 0; position < kRowPositions; ++position) texts << Item(item, position).Text();
    return texts;
}

QStringList MainFormTest::History() const { return installation.HistoryTexts(); }
