// The program 要員台帳更新: main().

#include "access/StartUp.h"
#include "globals/ProgramGlobals.h"
#include "platform/TerminationSignal.h"
#include "platform/ToolkitStart.h"
#include "registration/Mod要員台帳更新.h"
#include "screen/Form.h"
#include "screen/SuiteApplication.h"

int main(int argc, char** argv) {
    if (PrintVersion(argc, argv, "要員台帳更新")) return 0;
    const SuiteApplication application(argc, argv);
    // Does not ask about unsaved input: there may be no user to answer.
    platform::OnTerminationRequest(LeaveProgram);
    Form::RunEvent(StartRegistration);
    // An error thrown by the start has been shown already; without a window the program cannot continue.
    if (!Globals().MainForm->isVisible()) LeaveProgram();
    return SuiteApplication::exec();
}
