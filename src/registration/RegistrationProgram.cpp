#include "globals/ProgramGlobals.h"
#include "platform/TerminationSignal.h"
#include "registration/Mod要員台帳更新.h"
#include "screen/Form.h"
#include "screen/SuiteApplication.h"

int main(int argc, char** argv) {
    const SuiteApplication application(argc, argv);
    // Nobody may be there to answer a question about what is not saved.
    platform::OnTerminationRequest(LeaveRegistration);
    Form::RunEvent(StartRegistration);
    // A failure that rose out of the start has been shown; without a window there is nothing to go on with.
    if (!Globals().MainForm->isVisible()) LeaveRegistration();
    return SuiteApplication::exec();
}
