#include <QApplication>

#include "frame/ProgramGlobals.h"
#include "platform/Services.h"
#include "platform/TerminationSignal.h"
#include "registration/Mod要員台帳更新.h"
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
    // Nobody may be there to answer a question about what is not saved.
    platform::OnTerminationRequest(LeaveRegistration);
    Form::RunEvent(StartRegistration);
    // A failure that rose out of the start has been shown; without a window there is nothing to go on with.
    if (!Globals().MainForm->isVisible()) LeaveRegistration();
    return application.exec();
}
