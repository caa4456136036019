#include "frame/MainFormFixture.h"

#include <QtTest/QTest>

#include "frame/Mod要員名簿照会.h"
#include "frame/ProgramGlobals.h"
#include "inquiry/DetailList.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

void MainFormTest::TearDown() {
    delete Globals().MainForm;
    Globals().MainForm = nullptr;
    // The windows that were opened from it live hidden to the end of the program.
    while (!LoadedForms().empty()) delete LoadedForms().back();
}

void MainFormTest::Start(const QString& commandLine, int screenHeight) {
    services.system.applicationFolder = installation.ProgramFolder();
    services.system.commandLine = commandLine;
    services.system.screen = QSize(1280, screenHeight);
    Main();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Globals().MainForm));
}

Form& MainFormTest::MainForm() const { return *Globals().MainForm; }

Control& MainFormTest::Item(const QString& name, int index) const { return MainForm().Item(name, index); }

void MainFormTest::Click(const QString& item, int index) {
    QTest::mouseClick(&Item(item, index).FocusWidget(), Qt::LeftButton);
}

void MainFormTest::Press(Qt::Key key) {
    Control* active = MainForm().ActiveControl();
    QTest::keyClick(active == nullptr ? static_cast<QWidget*>(&MainForm()) : &active->FocusWidget(), key);
}

void MainFormTest::Type(const QString& item, const QString& text) {
    Click(item);
    QTest::keyClick(&Item(item).FocusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&Item(item).FocusWidget(), Qt::Key_Delete);
    for (const QChar sign : text)
        QTest::sendKeyEvent(QTest::Click, &Item(item).FocusWidget(), Qt::Key_unknown, sign, Qt::NoModifier);
}

void MainFormTest::Enter(const QString& item, const QString& text) {
    Type(item, text);
    Press(Qt::Key_Tab);
}

QString MainFormTest::Focused() const {
    const Control* active = MainForm().ActiveControl();
    return active == nullptr ? QString() : active->Name();
}

QStringList MainFormTest::Column(const QString& item) const {
    QStringList texts;
    for (int position = 0; position < kRowPositions; ++position) texts << Item(item, position).Text();
    return texts;
}

QStringList MainFormTest::History() const { return installation.HistoryTexts(); }
