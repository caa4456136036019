#include "screen/SuiteApplication.h"

#include "platform/Services.h"
#include "screen/Fonts.h"
#include "screen/Translation.h"

namespace {

int& KeepArguments(int argc, char** argv) {
    platform::Services().system = std::make_unique<platform::HostSystemInformation>(argc, argv);
    return ToolkitStart::ArgumentCount(argc);
}

}  // namespace

SuiteApplication::SuiteApplication(int argc, char** argv, std::unique_ptr<ToolkitStart> start)
    : QApplication(KeepArguments(argc, argv), argv) {
    start.reset();
    setQuitOnLastWindowClosed(false);
    SpeakJapanese(*this);
    ApplySuiteLook(*this);
}

SuiteApplication::SuiteApplication(int argc, char** argv)
    : SuiteApplication(argc, argv, std::make_unique<ToolkitStart>(argc > 0 ? argv[0] : "")) {}
