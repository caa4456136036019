#include <gtest/gtest.h>

#include "globals/ProgramGlobals.h"
#include "output/Outputs.h"
#include "output/ReportDatabase.h"
#include "screen/Form.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

#include "support/OutputFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QString kHostKey = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE"_s;

/// Fake host: records the calls. One of its methods may fail.
class RecordingHosts : public platform::ReportHostLink {
  public:
    explicit RecordingHosts(QStringList& calls) : calls_(calls) {}

    QString failingVerb;
    std::function<void()> opening;  ///< called by OpenReport

    std::unique_ptr<platform::ReportHost> Bind(const QString& templateFile) override {
        Note(u"bind"_s, u" "_s + templateFile);
        return std::make_unique<Host>(*this);
    }

  private:
    class Host : public platform::ReportHost {
      public:
        explicit Host(RecordingHosts& hosts) : hosts_(hosts) {}
        ~Host() override { hosts_.calls_.append(u"release"_s); }
        void OpenReport(const QString& report, platform::ReportView view) override {
            if (hosts_.opening) hosts_.opening();
            hosts_.Note(u"OpenReport"_s, u" %1 %2"_s.arg(report).arg(static_cast<int>(view)));
        }
        void Maximize() override { hosts_.Note(u"Maximize"_s); }
        void Quit() override { hosts_.Note(u"Quit"_s); }

      private:
        RecordingHosts& hosts_;
    };

    void Note(const QString& verb, const QString& rest = {}) {
        calls_.append(verb + rest);
        if (verb == failingVerb) throw platform::RuntimeError(2501, verb + u" はできません。"_s);
    }

    QStringList& calls_;
};

/// Registry that records when it is read.
class RecordingRegistry : public platform::FileRegistry {
  public:
    explicit RecordingRegistry(QStringList& calls) : calls_(calls) {}
    long OpenKey(const platform::RegistryKey& parent, const QString& subkey, quint32 access,
                 platform::RegistryKey& key) override {
        calls_.append(u"registry "_s + subkey);
        return FileRegistry::OpenKey(parent, subkey, access, key);
    }

  private:
    QStringList& calls_;
};

/// Print and preview of the list on a fake host, with one checked row.
class ReportRunnerTest : public OutputTest {
  protected:
    ReportRunnerTest() {
        ProgramGlobals& globals = Globals();
        globals.Layout.ReportDbKind = FileKind::Accdb;
        globals.Layout.UserReportFolder = installation.ReportFolder();
        auto recording = std::make_unique<RecordingHosts>(Calls());
        hosts = recording.get();
        platform::Services().reportHosts = std::move(recording);
        services.clock.sleeping = [this](int milliseconds) { Calls().append(u"sleep %1"_s.arg(milliseconds)); };
        Register(u"/suite/host/OFFICE16/"_s);
        platform::Services().registry = std::make_unique<RecordingRegistry>(Calls());
    }

    QStringList& Calls() { return services.processes.calls; }
    QString Forms() const { return installation.ReportFolder() + u"/repfrmdb.accdb"_s; }
    /// The expected calls of a run up to the start of the host.
    QStringList StartCalls(const QString& program = u"/suite/host/OFFICE16/MSACCESS.EXE"_s) const {
        return {u"registry "_s + kHostKey, u"start hidden "_s + program + u" | "_s + Forms() + u" | /runtime"_s};
    }
    /// The same up to the connection to the host.
    QStringList BoundCalls() const {
        return StartCalls() +
               QStringList{u"open 0x100001 0 4711"_s, u"exit code of 4711"_s, u"sleep 400"_s, u"bind "_s + Forms()};
    }
    void Register(const QString& folder) {
        platform::FileRegistry registry;
        platform::RegistryKey key;
        registry.CreateKey(platform::MachineRoot(), kHostKey, platform::kRegistryAll, key);
        ASSERT_EQ(registry.SetText(key, u"Path"_s, folder, platform::TwoByteLength(folder)), platform::kRegistryDone);
    }
    void Unregister() { QFile::remove(platform::MachineRegistryFile()); }
    static bool WaitDialogShown() { return LoadedForm(u"msgお待ち"_s) != nullptr; }
    QStringList Boxes() const { return services.dialogs.Texts(); }

    RecordingHosts* hosts = nullptr;
    const QString report = u"要員名簿照会"_s;
};

const QStringList kPrintRows{u"出力開始 印刷"_s, u"出力終了 印刷"_s};
const QStringList kPreviewRows{u"出力開始 プレビュ"_s, u"出力終了 プレビュ"_s};

}  // namespace

TEST_F(ReportRunnerTest, PrintDrivesTheHostStepByStepAndKillsItAfterItsQuit) {
    PrintReportOnHost(report);
    EXPECT_EQ(Calls(), BoundCalls() + QStringList({u"OpenReport 要員名簿照会 0"_s, u"Quit"_s, u"release"_s,
                                                   u"kill 77 with 0"_s, u"close 77"_s}));
    EXPECT_EQ(Boxes(), QStringList());
    EXPECT_EQ(History(), kPrintRows);
}

TEST_F(ReportRunnerTest, PreviewMaximisesTheHostAndLeavesItWithItsHandle) {
    PreviewReportOnHost(report);
    EXPECT_EQ(Calls(), BoundCalls() + QStringList({u"OpenReport 要員名簿照会 2"_s, u"Maximize"_s, u"release"_s}));
    EXPECT_EQ(Globals().Host.HostProcessHandle, 77U);
    EXPECT_EQ(History(), kPreviewRows);
}

TEST_F(ReportRunnerTest, ExitCodeIsAskedWithTheProcessIdAndStaysZero) {
    services.processes.nextProcessId = 90001;
    PrintReportOnHost(report);
    EXPECT_TRUE(Calls().contains(u"exit code of 90001"_s));
    EXPECT_TRUE(Calls().contains(u"kill 77 with 0"_s));
    EXPECT_EQ(Globals().Host.HostExitCode, 0U);
}

TEST_F(ReportRunnerTest, NoSeparatorIsPutBetweenFolderAndProgram) {
    Register(u"  /suite/host/OFFICE16 "_s);
    services.processes.startFails = true;
    PrintReportOnHost(report);
    EXPECT_EQ(Calls(), StartCalls(u"/suite/host/OFFICE16MSACCESS.EXE"_s));
    EXPECT_EQ(Globals().Host.HostFolder, u"  /suite/host/OFFICE16 "_s);
    EXPECT_EQ(Boxes(), QStringList{u"プログラムがありません。"_s});
    EXPECT_EQ(History(), kPrintRows);
}

TEST_F(ReportRunnerTest, RegistryIsReadForEachRun) {
    PrintReportOnHost(report);
    Register(u"/other/"_s);
    PrintReportOnHost(report);
    EXPECT_EQ(Calls().count(u"registry "_s + kHostKey), 2);
    EXPECT_TRUE(Calls().join(u'\n').contains(u"start hidden /other/MSACCESS.EXE"_s));
}

TEST_F(ReportRunnerTest, MissingRegistrationIsShownByThePrint) {
    Unregister();
    PrintReportOnHost(report);
    EXPECT_EQ(Calls(), QStringList{u"registry "_s + kHostKey});
    EXPECT_EQ(Boxes(), QStringList{u"帳票ホストがこのコンピューターに登録されていません。"_s});
    EXPECT_EQ(History(), kPrintRows);
}

TEST_F(ReportRunnerTest, FailedPrintKillsNothingAndLeavesTheHandle) {
    for (const QString& verb : {u"bind"_s, u"OpenReport"_s, u"Quit"_s}) {
        Calls().clear();
        services.dialogs.shown.clear();
        hosts->failingVerb = verb;
        PrintReportOnHost(report);
        EXPECT_EQ(Boxes(), QStringList{verb + u" はできません。"_s});
        EXPECT_EQ(Calls().filter(u"kill"_s) + Calls().filter(u"close"_s), QStringList());
        EXPECT_EQ(Calls().count(u"bind "_s + Forms()), 1) << "one try only";
        EXPECT_TRUE(Globals().ReportDatabase.IsOpen());
    }
}

TEST_F(ReportRunnerTest, FailedPreviewIsSilent) {
    for (const QString& verb : {u"bind"_s, u"OpenReport"_s, u"Maximize"_s}) {
        hosts->failingVerb = verb;
        PreviewReportOnHost(report);
    }
    Unregister();
    PreviewReportOnHost(report);
    EXPECT_EQ(Boxes(), QStringList());
    EXPECT_EQ(History().count(u"出力終了 プレビュ"_s), 4);
}

TEST_F(ReportRunnerTest, AnyFailureLeavesTheReportDatabaseOpenAndToBeWritten) {
    const QStringList failures = {u"registration"_s, u"start"_s, u"bind"_s, u"OpenReport"_s, u"Quit"_s, u"Maximize"_s};
    for (bool (*const bringOut)(const QString&) : {&PrintReportOnHost, &PreviewReportOnHost}) {
        for (const QString& failure : failures) {
            ASSERT_TRUE(OpenReportDatabase());
            failure == u"registration"_s ? Unregister() : Register(u"/suite/host/"_s);
            services.processes.startFails = failure == u"start"_s;
            hosts->failingVerb = failure;
            bringOut(report);
            EXPECT_TRUE(Globals().ReportDatabase.IsOpen()) << failure.toStdString();
            EXPECT_TRUE(ExecuteReportSql(u"DELETE FROM 要員名簿照会"_s)) << failure.toStdString();
            EXPECT_EQ(History().last(), bringOut == &PrintReportOnHost ? u"出力終了 印刷"_s : u"出力終了 プレビュ"_s);
        }
    }
}

TEST_F(ReportRunnerTest, OnlyThePrintShowsAFailedReopening) {
    for (bool (*const bringOut)(const QString&) : {&PrintReportOnHost, &PreviewReportOnHost}) {
        const QByteArray tables = ReadBytes(installation.Report().Path());
        ASSERT_TRUE(OpenReportDatabase());
        services.dialogs.shown.clear();
        hosts->opening = [this] { ASSERT_TRUE(QFile::remove(installation.Report().Path())); };
        bringOut(report);
        EXPECT_FALSE(Globals().ReportDatabase.IsOpen());
        const bool prints = bringOut == &PrintReportOnHost;
        EXPECT_EQ(Boxes().size(), prints ? 1 : 0);
        EXPECT_EQ(History().last(), prints ? u"出力終了 印刷"_s : u"出力終了 プレビュ"_s);
        WriteBytes(installation.Report().Path(), tables);
    }
}

TEST_F(ReportRunnerTest, WithoutAFormsPathTheHostIsSkippedInSilence) {
    Globals().Layout.ReportDbKind = FileKind::None;
    PrintReportOnHost(report);
    EXPECT_EQ(Calls(), QStringList());
    EXPECT_EQ(Boxes(), QStringList());
    EXPECT_EQ(History(), kPrintRows);
}

TEST_F(ReportRunnerTest, OlderFilesHaveTheirOwnForms) {
    Globals().Layout.ReportDbKind = FileKind::Mdb;
    PrintReportOnHost(report);
    EXPECT_TRUE(Calls().contains(u"bind "_s + installation.ReportFolder() + u"/repfrmdb.mdb"_s));
}

TEST_F(ReportRunnerTest, ReportDatabaseIsClosedWhileTheHostRuns) {
    ASSERT_TRUE(OpenReportDatabase());
    bool open = true;
    hosts->opening = [&open] { open = Globals().ReportDatabase.IsOpen(); };
    PrintReportOnHost(report);
    EXPECT_FALSE(open);
    EXPECT_TRUE(Globals().ReportDatabase.IsOpen());
}

TEST_F(ReportRunnerTest, HostIsReleasedAlsoAfterAFailure) {
    hosts->failingVerb = u"OpenReport"_s;
    PrintReportOnHost(report);
    EXPECT_EQ(Calls().last(), u"release"_s);
    EXPECT_EQ(Globals().Host.HostApplication, nullptr);
    EXPECT_EQ(Globals().Host.HostProcessId, 4711U);
}

TEST_F(ReportRunnerTest, WaitDialogIsShownWhileTheHostRuns) {
    AddRows(2);
    bool shown = false;
    hosts->opening = [&shown] { shown = WaitDialogShown(); };
    RunReportPrint();
    EXPECT_TRUE(shown);
    EXPECT_FALSE(WaitDialogShown());
    EXPECT_FALSE(Globals().ReportDatabase.IsOpen());
    EXPECT_EQ(WorkColumn(u"コード"_s), QStringList({u"00001"_s, u"00002"_s}));
    EXPECT_EQ(History(), kPrintRows);
}

TEST_F(ReportRunnerTest, UnknownKindOnlyShowsAMessage) {
    AddRows(1);
    Globals().Layout.ReportDbKind = FileKind::None;
    RunReportPrint();
    RunReportPreview();
    EXPECT_EQ(Boxes(), QStringList({u"帳票が使用できません。"_s, u"帳票が使用できません。"_s}));
    EXPECT_EQ(Calls(), QStringList());
    EXPECT_EQ(History(), QStringList());
}

TEST_F(ReportRunnerTest, WithoutTickedRowsNoHostStarts) {
    AddRow({}, false);
    RunReportPrint();
    RunReportPreview();
    EXPECT_EQ(Boxes(), QStringList({u"印刷情報が有りません"_s, u"印刷情報が有りません"_s}));
    EXPECT_EQ(Calls(), QStringList());
    EXPECT_EQ(History(), QStringList());
    EXPECT_FALSE(WaitDialogShown());
    EXPECT_FALSE(Globals().ReportDatabase.IsOpen());
}
