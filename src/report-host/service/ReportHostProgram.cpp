// The program report-host: main().

#include <cstdio>
#include <optional>

#include "platform/ProcessService.h"
#include "platform/Services.h"
#include "platform/TerminationSignal.h"
#include "platform/ToolkitStart.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/service/HostListener.h"
#include "report-host/service/HostService.h"
#include "screen/SuiteApplication.h"

using namespace Qt::StringLiterals;

namespace {

/// Printing needs no display: run headless if there is none.
void DoWithoutDisplay() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(variable)) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// Reports a start failure. A message box only if started by a user; a hidden host must not show windows.
int Refuse(const QString& reason) {
    std::fprintf(stderr, "report-host: %s\n", qPrintable(reason));
    if (qEnvironmentVariableIsEmpty(platform::kStartHiddenVariable)) platform::Services().dialogs->ShowMessage(reason);
    return 1;
}

}  // namespace

// Usage: report-host TEMPLATE-FILE [/runtime]
int main(int argc, char** argv) {
    if (PrintVersion(argc, argv, "report-host")) return 0;
    // Must be early: the client connects once, 400 ms after starting us.
    std::optional<HostListener> listener;
    const QString templateFile = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (!templateFile.isEmpty()) listener.emplace(templateFile);
    DoWithoutDisplay();
    const SuiteApplication application(argc, argv);
    platform::Services().dialogs->defaultTitle = u"帳票"_s;
    if (!listener) return Refuse(u"帳票ファイルを指定してください。"_s);
    if (!listener->IsOpen()) return Refuse(u"帳票ホストの受付を開けません。"_s + listener->OpenError());
    HostService service(*listener, templateFile, PrepareReport);
    service.Finished = [] { QCoreApplication::quit(); };
    platform::OnTerminationRequest([] { QCoreApplication::quit(); });
    return SuiteApplication::exec();
}
