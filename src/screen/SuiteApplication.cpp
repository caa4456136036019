#include "screen/SuiteApplication.h"

#include "platform/Services.h"
#include "screen/Fonts.h"
#include "screen/Translation.h"

namespace {

int& KeepArguments(int& argc, char** argv) {
    platform::Services().system = std::make_unique<platform::HostSystemInformation>(argc, argv);
    return argc;
}

}  // namespace

SuiteApplication::SuiteApplication(int& argc, char** argv) : QApplication(KeepArguments(argc, argv), argv) {
    setQuitOnLastWindowClosed(false);
    SpeakJapanese(*this);
    ApplySuiteLook(*this);
}
