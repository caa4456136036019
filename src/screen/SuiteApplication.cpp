#include "screen/SuiteApplication.h"

#include <QScreen>

#include "platform/Services.h"
#include "screen/Style.h"
#include "screen/Translation.h"
#include "screen/WidgetDialogs.h"
#include "screen/msgお待ち.h"

namespace {

class ScreenInformation : public platform::LocalSystemInformation {
  public:
    using LocalSystemInformation::LocalSystemInformation;
    QSize ScreenSize() const override {
        const QScreen* screen = QGuiApplication::primaryScreen();
        return screen == nullptr ? QSize() : screen->size();
    }
};

class WaitWindow : public platform::WaitDialog {
  public:
    void Show() override { ShowWaitDialog(); }
    void Unload() override { UnloadWaitDialog(); }
};

int& KeepArguments(int argc, char** argv) {
    platform::Services().system = std::make_unique<ScreenInformation>(argc, argv);
    return ToolkitStart::ArgumentCount(argc);
}

}  // namespace

void InstallWindowServices(platform::ServiceSet& services) {
    services.dialogs = std::make_unique<WidgetDialogs>();
    services.waitDialog = std::make_unique<WaitWindow>();
}

SuiteApplication::SuiteApplication(int argc, char** argv, std::unique_ptr<ToolkitStart> start)
    : QApplication(KeepArguments(argc, argv), argv) {
    start.reset();
    InstallWindowServices(platform::Services());
    setQuitOnLastWindowClosed(false);
    InstallTranslator(*this);
    ApplySuiteStyle(*this);
}

SuiteApplication::SuiteApplication(int argc, char** argv)
    : SuiteApplication(argc, argv, std::make_unique<ToolkitStart>(argc > 0 ? argv[0] : "")) {}
