// The program suite-setup: main().

#include <QGuiApplication>
#include <QTextStream>
#include <QThread>
#include <cstdio>
#include <memory>
#include <string_view>

#include "platform/EndRequest.h"
#include "platform/TerminationSignal.h"
#include "platform/ToolkitStart.h"
#include "setup/commands/Verbs.h"

namespace {

bool WaitForMore() {
    constexpr unsigned long kLookMilliseconds = 300;
    if (!platform::EndRequested()) QThread::msleep(kLookMilliseconds);
    return !platform::EndRequested();
}

/// Rendering pages needs fonts, and thus a QGuiApplication, if only on the offscreen platform.
bool MakesPages(int argc, char** argv) {
    return argc > 2 && std::string_view(argv[1]) == "forms" && std::string_view(argv[2]) == "pdf";
}

std::unique_ptr<QCoreApplication> MakeApplication(int argc, char** argv) {
    int& count = ToolkitStart::ArgumentCount(argc);
    if (!MakesPages(argc, argv)) return std::make_unique<QCoreApplication>(count, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(count, argv);
}

QStringList Arguments(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

}  // namespace

int main(int argc, char** argv) {
    if (PrintVersion(argc, argv, "suite-setup")) return 0;
    const std::unique_ptr<QCoreApplication> application = MakeApplication(argc, argv);
    platform::RequestEndOnSignals();
    QTextStream out(stdout), err(stderr);
    return setup::RunSetup(Arguments(argc, argv), {out, err, QCoreApplication::applicationDirPath(), WaitForMore});
}
