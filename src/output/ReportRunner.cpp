// Part of Outputs.h: RunOutput and the outputs on the report host.

#include "data/Files.h"
#include "data/ReportHostTrust.h"
#include "data/RunHistory.h"
#include "globals/ProgramGlobals.h"
#include "output/Outputs.h"
#include "output/ReportData.h"
#include "output/ReportDatabase.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "screen/msgお待ち.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRegistryBuffer = 256;
constexpr quint32 kTerminateAndSynchronize = 0x100001;
constexpr int kHostStartTimeout = 400;  // milliseconds until the single attempt to connect
constexpr long kInvalidCall = 5;

QString TemplateFile() {
    const InstallationLayout& layout = Globals().Layout;
    const QString name = DesktopFileName(u"repfrmdb"_s, layout.ReportDbKind);
    return name.isEmpty() ? name : layout.UserReportFolder + platform::kPathSeparator + name;
}

/// Read for each run, not cached. After a failed read the buffer has no NUL terminator, which throws.
QString RegisteredHostFolder() {
    QString buffer(kRegistryBuffer, u' ');
    int length = kRegistryBuffer;
    platform::Services().registry->GetValue(platform::MachineRoot(), kReportHostKey, u"Path"_s,
                                            platform::kRegistryTextType, buffer, length);
    const qsizetype end = buffer.indexOf(QChar(u'\0'));
    if (end < 0) throw platform::RuntimeError(kInvalidCall, u"帳票ホストがこのコンピューターに登録されていません。"_s);
    return buffer.first(end);
}

void StartHost(const QString& templateFile) {
    HostRun& run = Globals().Host;
    platform::ProcessService& processes = *platform::Services().processes;
    run.HostFolder = RegisteredHostFolder();
    // The registered folder ends with a separator.
    run.HostProcessId =
        processes.StartHidden(TrimBlanks(run.HostFolder) + kReportHostProgram, {templateFile, u"/runtime"_s});
    run.HostProcessHandle = processes.OpenProcess(kTerminateAndSynchronize, false, run.HostProcessId);
    // Called with the id instead of the handle: fails, and the code passed to TerminateProcess stays 0.
    processes.GetExitCodeProcess(run.HostProcessId, run.HostExitCode);
    platform::Services().clock->Sleep(kHostStartTimeout);
}

void OpenOnHost(const QString& templateFile, const QString& report, platform::ReportView view) {
    HostRun& run = Globals().Host;
    run.HostApplication = platform::Services().reportHosts->Bind(templateFile);
    run.HostApplication->OpenReport(report, view);
}

/// After a successful run the host is always killed, even if Quit succeeded.
void EndHost() {
    HostRun& run = Globals().Host;
    run.HostApplication->Quit();
    run.HostApplication.reset();
    platform::Services().processes->TerminateProcess(run.HostProcessHandle, run.HostExitCode);
    platform::Services().processes->CloseHandle(run.HostProcessHandle);
}

/// The user closes the host. Its process handle stays open.
void LeaveHostToUser() {
    Globals().Host.HostApplication->Maximize();
    Globals().Host.HostApplication.reset();
}

/// The differences between print and preview.
struct HostUse {
    QString operation;  ///< in the run history
    platform::ReportView view;
    void (*finish)();
    bool showsErrors;
};

/// Catches runtime errors; shows them if `use` asks for it. The result of `step`, false after an error.
template <typename Step>
bool TryShowing(const HostUse& use, Step step) {
    try {
        return step();
    } catch (const platform::RuntimeError& error) {
        Globals().Host.HostApplication.reset();
        if (use.showsErrors) platform::Services().dialogs->ShowMessage(platform::TextForPeople(error));
        return false;
    }
}

bool OutputOnHost(const HostUse& use, const QString& report) {
    RecordOutputStart(use.operation);
    CloseReportDatabase();
    const bool done = TryShowing(use, [&] {
        const QString templateFile = TemplateFile();
        if (templateFile.isEmpty()) return false;
        StartHost(templateFile);
        OpenOnHost(templateFile, report, use.view);
        use.finish();
        return true;
    });
    TryShowing(use, OpenReportDatabase);
    RecordOutputEnd(use.operation);
    return done;
}

bool RunReport(bool (*output)(const QString&)) {
    return RunOutput(
        BuildReportData, [output] { return output(Globals().ReportName); }, u"印刷情報が有りません"_s);
}

bool PrintMailPieces(bool (*build)(), const QString& suffix) {
    return RunOutput(
        build, [suffix] { return PrintReportOnHost(Globals().ReportName + suffix); }, u"印刷情報が有りません"_s);
}

}  // namespace

bool RunOutput(bool (*build)(), const std::function<bool()>& output, const QString& nothing) {
    platform::Dialogs& dialogs = *platform::Services().dialogs;
    if (!OpenReportDatabase()) {
        dialogs.ShowMessage(u"帳票が使用できません。"_s);
        return false;
    }
    ShowWaitDialog();
    bool done = false;
    if (build())
        done = output();
    else
        dialogs.ShowMessage(nothing);
    UnloadWaitDialog();
    CloseReportDatabase();
    return done;
}

bool RunReportPrint() { return RunReport(PrintReportOnHost); }

bool RunReportPreview() { return RunReport(PreviewReportOnHost); }

bool RunEnvelopePrint() { return PrintMailPieces(BuildEnvelopeData, u"封筒"_s); }

bool RunPostcardPrint() { return PrintMailPieces(BuildPostcardData, u"はがき"_s); }

bool RunLabelPrint() { return PrintMailPieces(BuildLabelData, u"宛名ラベル"_s); }

bool PrintReportOnHost(const QString& report) {
    return OutputOnHost(
        {.operation = u"印刷"_s, .view = platform::ReportView::Print, .finish = EndHost, .showsErrors = true}, report);
}

bool PreviewReportOnHost(const QString& report) {
    return OutputOnHost({.operation = u"プレビュ"_s,
                         .view = platform::ReportView::Preview,
                         .finish = LeaveHostToUser,
                         .showsErrors = false},
                        report);
}
