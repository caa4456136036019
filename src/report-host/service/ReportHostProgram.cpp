#include <cstdio>
#include <optional>

#include "platform/ProcessService.h"
#include "platform/Services.h"
#include "platform/TerminationSignal.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/service/HostListener.h"
#include "report-host/service/HostService.h"
#include "screen/SuiteApplication.h"

using namespace Qt::StringLiterals;

namespace {

/// Paper can be made without a display.
void DoWithoutDisplay() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(variable)) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// A host that was started by hand tells what is wrong; a hidden one has nobody to tell.
int Refuse(const QString& reason) {
    std::fprintf(stderr, "report-host: %s\n", qPrintable(reason));
    if (qEnvironmentVariableIsEmpty(platform::kStartHiddenVariable)) platform::Services().dialogs->ShowMessage(reason);
    return 1;
}

}  // namespace

// report-host FORMS-FILE [/runtime]
int main(int argc, char** argv) {
    // Before anything else: whoever started this host looks for it 400 ms later, and never again.
    std::optional<HostListener> door;
    const QString formsFile = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (!formsFile.isEmpty()) door.emplace(formsFile);
    DoWithoutDisplay();
    const SuiteApplication application(argc, argv);
    platform::Services().dialogs->defaultTitle = u"帳票"_s;
    if (!door) return Refuse(u"帳票ファイルを指定してください。"_s);
    if (!door->IsOpen()) return Refuse(u"帳票ホストの受付を開けません。"_s + door->Refusal());
    HostService service(*door, formsFile, PrepareReport);
    service.Finished = [] { QCoreApplication::quit(); };
    platform::OnTerminationRequest([] { QCoreApplication::quit(); });
    return SuiteApplication::exec();
}
