#include <QApplication>

#include "frame/Mod要員名簿照会.h"
#include "frame/ProgramGlobals.h"
#include "frame/UnattendedRun.h"
#include "platform/OutputFile.h"
#include "platform/Services.h"
#include "platform/TerminationSignal.h"
#include "screen/Fonts.h"
#include "screen/Form.h"
#include "screen/Translation.h"

int main(int argc, char** argv) {
    // First of all: QApplication takes those arguments away that it knows.
    platform::Services().system = std::make_unique<platform::HostSystemInformation>(argc, argv);
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    SpeakJapanese(application);
    ApplySuiteLook(application);
    TellAndCloseModalWindows(application);
    platform::LetWritesPastALimitFail();
    platform::OnTerminationRequest([] { Globals().MainForm->close(); });
    Form::RunEvent(Main);
    // A failure that rose out of Main has been shown; without a window there is nothing to go on with.
    if (!Globals().MainForm->isVisible()) LeaveProgram();
    return application.exec();
}
