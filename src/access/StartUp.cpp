#include "access/StartUp.h"

#include "access/ProgramLinks.h"
#include "access/ProgramRights.h"
#include "data/Connections.h"
#include "data/Environment.h"
#include "data/Recordsets.h"
#include "data/RunHistory.h"
#include "data/ServerSchema.h"
#include "globals/ProgramGlobals.h"
#include "platform/EndRequest.h"
#include "platform/RuntimeError.h"
#include "platform/SealedPins.h"
#include "platform/Services.h"
#include "screen/Form.h"
#include "text/TimeStamp.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

/// With such a fault, searches by name find no rows, and no error is recorded.
void RecordServerTextFaults() {
    try {
        for (const ServerTextFault& fault : FindServerTextFaults(Globals().MainConnection))
            RecordRunError(u"一般データベースの%1。次を実行すると直ります。%2"_s.arg(fault.what, fault.remedy));
    } catch (const database::DatabaseError&) {
        // The other statements of the start then fail as well and are recorded.
    }
}

/// Also true if the definition row has an unknown dialect and nothing was opened.
bool OpenOrRecord() {
    try {
        OpenGeneralConnection();
        RecordServerTextFaults();
        return true;
    } catch (const platform::RuntimeError& error) {
        RecordRunError(u"DB_OPEN ERROR"_s + QString::number(error.Number()) + u' ' + error.Description());
        return false;
    }
}

constexpr qint64 kStartLinkAge = 60;  // seconds

/// Clears pointers to controls of a window that is destroyed while the program runs on.
class GlobalsObserver : public FormObserver {
  public:
    void ControlRemoved(const Control& control) override {
        ProgramGlobals& globals = Globals();
        for (Control** kept : {&globals.FirstHeadItem, &globals.LastHeadItem, &globals.ActiveItem,
                               &globals.ListResultItem, &globals.ListNextItem})
            if (*kept == &control) *kept = nullptr;
    }
    Form* OpenerOf(const Form& /*form*/) override {
        return Globals().NestedListOwner != nullptr ? Globals().NestedListOwner : Globals().MainForm;
    }
};

/// The key file is not read before the first PIN is decrypted.
void InstallPinCipher() {
    platform::Services().pins = std::make_unique<platform::SealedPins>(
        Globals().Layout.CommonConfFolder + platform::kPathSeparator + platform::PinKeyFileName(), RecordRunError);
}

bool OpenDataEnvironment(const QString& command) {
    if (!LoadEnvironment()) return false;
    InstallPinCipher();
    RecordRunStart();
    ReceiveStartLink(command, TimeStamp(platform::Services().clock->Now().addSecs(-kStartLinkAge)));
    // Shared with the suite's menu program, which is the only one with this id.
    if (Globals().ProgramId == u"販路推進"_s) PurgeOldData();
    return OpenMainConnection();
}

/// `open` is the flag of a connection that was opened once; it is not reset.
void CloseAndRelease(bool open, database::Connection& connection) {
    if (!open) return;
    connection.Close();
    connection = database::Connection();
}

}  // namespace

void RecordRunStart() {
    try {
        LoadLaunchStaffCode();
        const QString command = TrimBlanks(platform::Services().system->CommandLine());
        InsertHistoryRow(u"開始 "_s + QuoteSqlText(command));
    } catch (const platform::RuntimeError&) {
        return;
    }
}

bool OpenMainConnection() {
    ProgramGlobals& globals = Globals();
    globals.MainConnectionOpen = OpenOrRecord();
    if (!globals.MainConnectionOpen) return false;
    if (LoadLaunchStaffCode()) LoadStaffIdentity(QString(globals.Staff.LaunchingStaffCode));
    return true;
}

void ConnectFormsToGlobals() {
    static GlobalsObserver observer;
    ObserveForms(&observer);
}

void BeginProgram(const QString& programId) {
    ProgramGlobals& globals = Globals();
    globals.ProgramId = globals.ReportName = programId;
    globals.MenuName = u"販路推進データ管理"_s;
    platform::Services().dialogs->defaultTitle = programId;
    ConnectFormsToGlobals();
}

bool InitializeData(int keyLength) {
    MeasureScreen();
    Globals().ProcCounter = 0;
    const QString command = TrimBlanks(platform::Services().system->CommandLine()).leftJustified(keyLength, u' ');
    try {
        return OpenDataEnvironment(command);
    } catch (const platform::RuntimeError&) {
        return false;
    }
}

void TerminateData() {
    const platform::Ending ending;
    ProgramGlobals& globals = Globals();
    if (!globals.LinkStartInfo.isEmpty()) WriteEndLink(globals.LinkEndInfo);
    RecordRunEnd();
    CloseAndRelease(globals.ConfigConnectionOpen, globals.ConfigConnection);
    CloseAndRelease(globals.MainConnectionOpen, globals.MainConnection);
}

bool RefuseStart(const QString& message) {
    platform::Services().dialogs->ShowMessage(message);
    LeaveProgram();
    return false;
}

void LeaveProgram() {
    TerminateData();
    platform::Services().processes->EndProcess(0);
}
