#include "output/ReportRunner.h"

#include "data/RunHistory.h"
#include "globals/ProgramGlobals.h"
#include "output/OutputFlow.h"
#include "output/ReportData.h"
#include "output/ReportDatabase.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

const QString kHostKey = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE"_s;
const QString kHostProgram = u"MSACCESS.EXE"_s;
constexpr int kRegistryBuffer = 256;
constexpr quint32 kTerminateAndSynchronize = 0x100001;
constexpr int kHostStartTime = 400;  // milliseconds: all that a host is given to come up
constexpr long kInvalidCall = 5;

QString FormsFile() {
    const InstallationLayout& layout = Globals().Layout;
    switch (layout.ReportDbKind) {
        case kAccdb:
            return layout.UserReportFolder + platform::kPathSeparator + u"repfrmdb.accdb"_s;
        case kMdb:
            return layout.UserReportFolder + platform::kPathSeparator + u"repfrmdb.mdb"_s;
        default:
            return {};
    }
}

/// Read anew for each run. What a failed reading leaves in the buffer has no NUL, and the cut fails.
QString RegisteredHostFolder() {
    QString buffer(kRegistryBuffer, u' ');
    int length = kRegistryBuffer;
    platform::Services().registry->GetValue(platform::MachineRoot(), kHostKey, u"Path"_s, platform::kRegistryTextType,
                                            buffer, length);
    const qsizetype end = buffer.indexOf(QChar(u'\0'));
    if (end < 0) throw platform::RuntimeError(kInvalidCall, u"帳票ホストがこのコンピューターに登録されていません。"_s);
    return buffer.first(end);
}

void StartHost(const QString& formsFile) {
    HostRun& run = Globals().Host;
    platform::ProcessService& processes = *platform::Services().processes;
    run.HostFolder = RegisteredHostFolder();
    // No separator is put in between: the registered folder ends with one.
    run.HostProcessId = processes.StartHidden(TrimBlanks(run.HostFolder) + kHostProgram, {formsFile, u"/runtime"_s});
    run.HostProcessHandle = processes.OpenProcess(kTerminateAndSynchronize, false, run.HostProcessId);
    // Asked with the id and not with the handle, so nothing comes of it and the code stays 0. The kill hands it on.
    processes.GetExitCodeProcess(run.HostProcessId, run.HostExitCode);
    platform::Services().clock->Sleep(kHostStartTime);
}

void OpenOnHost(const QString& formsFile, const QString& report, int view) {
    HostRun& run = Globals().Host;
    run.HostApplication = platform::Services().reportHosts->Bind(formsFile);
    run.HostApplication->OpenReport(report, view);
}

/// Killed in every run that went well, whatever became of the polite request before.
void EndHost() {
    HostRun& run = Globals().Host;
    run.HostApplication->Quit();
    run.HostApplication.reset();
    platform::Services().processes->TerminateProcess(run.HostProcessHandle, run.HostExitCode);
    platform::Services().processes->CloseHandle(run.HostProcessHandle);
}

/// The user closes it. Its handle stays open.
void LeaveHostToUser() {
    Globals().Host.HostApplication->Maximize();
    Globals().Host.HostApplication.reset();
}

/// What print and preview differ in.
struct HostUse {
    QString word;  ///< in the run history
    int view;
    void (*afterwards)();
    bool tellsFailures;
};

template <typename Step>
void Attempt(const HostUse& use, Step step) {
    try {
        step();
    } catch (const platform::RuntimeError& error) {
        Globals().Host.HostApplication.reset();
        if (use.tellsFailures) platform::Services().dialogs->ShowMessage(platform::TextForPeople(error));
    }
}

void BringOutOnHost(const HostUse& use, const QString& report) {
    RecordOutputStart(use.word);
    CloseReportDatabase();
    Attempt(use, [&] {
        const QString formsFile = FormsFile();
        if (formsFile.isEmpty()) return;
        StartHost(formsFile);
        OpenOnHost(formsFile, report, use.view);
        use.afterwards();
    });
    Attempt(use, [] { OpenReportDatabase(); });
    RecordOutputEnd(use.word);
}

void RunReport(void (*bringOut)(const QString&)) {
    RunOutput(
        BuildReportData, [bringOut] { bringOut(Globals().ReportName); }, u"印刷情報が有りません"_s);
}

}  // namespace

void RunReportPrint() { RunReport(PrintReportOnHost); }

void RunReportPreview() { RunReport(PreviewReportOnHost); }

void PrintReportOnHost(const QString& report) {
    BringOutOnHost({u"印刷"_s, platform::kPrintReport, EndHost, true}, report);
}

void PreviewReportOnHost(const QString& report) {
    BringOutOnHost({u"プレビュ"_s, platform::kPreviewReport, LeaveHostToUser, false}, report);
}
