// The program 要員名簿照会: main().

#include "access/StartUp.h"
#include "frame/Mod要員名簿照会.h"
#include "globals/ProgramGlobals.h"
#include "platform/OutputFile.h"
#include "platform/TerminationSignal.h"
#include "platform/ToolkitStart.h"
#include "screen/Form.h"
#include "screen/SuiteApplication.h"

int main(int argc, char** argv) {
    if (PrintVersion(argc, argv, "要員名簿照会")) return 0;
    SuiteApplication application(argc, argv);
    CloseModalWindowsIfHeadless(application);
    platform::LetWritesPastALimitFail();
    platform::OnTerminationRequest([] { Globals().MainForm->close(); });
    Form::RunEvent(Main);
    // An error thrown by Main has been shown already; without a window the program cannot continue.
    if (!Globals().MainForm->isVisible()) LeaveProgram();
    return SuiteApplication::exec();
}
