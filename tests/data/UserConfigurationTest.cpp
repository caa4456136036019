#include "data/Environment.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFile>

#include <functional>
#include <optional>
#include <stdexcept>

#include "data/Connections.h"
#include "database/DatabaseError.h"
#include "globals/ProgramGlobals.h"
#include "platform/RuntimeError.h"
#include "screen/Form.h"
#include "screen/msgお待ち.h"
#include "support/FakeRegistry.h"
#include "support/FileBytes.h"
#include "support/FileSizeLimit.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

const QString kLinks = u"SELECT 接続 FROM リンクテーブル ORDER BY rowid"_s;

bool WaitDialogIsShown() { return LoadedForm(u"msgお待ち"_s) != nullptr; }

/// Records the copies in order, with a star appended if the wait dialog is shown meanwhile.
class WatchedFiles : public platform::LocalFileSystem {
  public:
    QStringList& copies;
    QString diskFullAt;                       ///< the disk is full when this file is copied
    QString noFolderBelow;                    ///< no folder can be created in this one
    std::function<void()> meanwhile = [] {};  ///< called during each copy, as an event would be
    QString unremovable;                      ///< name of a file that cannot be removed
    bool noMark = false;                      ///< the marker file cannot be created
    explicit WatchedFiles(QStringList& watched) : copies(watched) {}

    bool CopyFile(const QString& source, const QString& target) const override {
        const QString name = QFileInfo(target).fileName();
        meanwhile();
        copies.append(name + (WaitDialogIsShown() ? u"*"_s : u""_s));
        std::optional<FileSizeLimit> full;
        if (name == diskFullAt) full.emplace(QFileInfo(source).size() / 2);
        return LocalFileSystem::CopyFile(source, target);
    }
    bool RemoveFile(const QString& path) const override {
        return QFileInfo(path).fileName() != unremovable && LocalFileSystem::RemoveFile(path);
    }
    bool CreateMark(const QString& path) const override { return !noMark && LocalFileSystem::CreateMark(path); }
    void CreateFolder(const QString& path) const override {
        if (!noFolderBelow.isEmpty() && path.startsWith(noFolderBelow))
            throw platform::RuntimeError(70, u"書き込む権限がありません。"_s);
        LocalFileSystem::CreateFolder(path);
    }
};

class BrokenTableEngine : public database::TableEngine {
  public:
    std::unique_ptr<database::TableFile> OpenDatabase(const QString&) override {
        throw database::DatabaseError(database::kEngineFailure, u"disk I/O error"_s);
    }
};

/// Counts how often the wait dialog is shown.
class WaitDialogWatch : public QObject {
  public:
    WaitDialogWatch() { QCoreApplication::instance()->installEventFilter(this); }
    int shown = 0;

    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* form = dynamic_cast<Form*>(object);
        if (event->type() == QEvent::Show && form != nullptr && form->Name() == u"msgお待ち"_s) ++shown;
        return false;
    }
};

/// A user without private files in an installation with private copies.
class UserConfiguration : public testing::Test {
  protected:
    explicit UserConfiguration(bool mdb = false)
        : installation({.staff = 1, .mdb = mdb, .installKind = 1}), kind(mdb ? FileKind::Mdb : FileKind::Accdb) {
        services.system.applicationFolder = installation.ProgramFolder();
        registry.GiveHost(u"/opt/host/OFFICE16/"_s);
        auto watched = std::make_unique<WatchedFiles>(copies);
        files = watched.get();
        platform::Services().files = std::move(watched);
        InstallationLayout& layout = Globals().Layout;
        layout.CommonConfFolder = installation.ConfFolder();
        layout.CommonReportFolder = installation.ReportFolder();
        layout.UserConfFolder = Own(u"conf"_s);
        layout.UserReportFolder = Own(u"report"_s);
        layout.ConfigDbKind = layout.ReportDbKind = kind;
    }

    QString Own(const QString& path) const { return installation.UserFolder(u"tester"_s) + u'/' + path; }
    QStringList OwnFiles(const QString& folder) const {
        return QDir(Own(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /// Connect texts in one of the user's template files, without duplicates.
    QStringList LinksOf(const QString& file) const {
        QStringList links;
        for (const QStringList& row : SampleFile(Own(u"report/"_s + file)).Rows(kLinks)) links.append(row.first());
        links.removeDuplicates();
        return links;
    }
    QString OwnLink(const QString& file = u"repdb.accdb"_s) const { return u";DATABASE="_s + Own(u"report/"_s + file); }

    TestServices services;
    SampleInstallation installation;
    FakeRegistry& registry = UseStandInRegistry();
    QStringList copies;
    WatchedFiles* files = nullptr;
    FileKind kind;
};

class OlderUserConfiguration : public UserConfiguration {
  protected:
    OlderUserConfiguration() : UserConfiguration(true) {}
};

}  // namespace

TEST_F(UserConfiguration, FirstStartMakesCopiesLinkedToTheUsersOwnTablesUnderTheWaitDialog) {
    ASSERT_TRUE(LoadEnvironment());
    EXPECT_EQ(copies, QStringList({u"usrcnfg.accdb"_s, u"repdb.accdb*"_s, u"repfrmdb.accdb*"_s}));
    EXPECT_FALSE(WaitDialogIsShown());
    EXPECT_EQ(OwnFiles(u"conf"_s), QStringList{u"usrcnfg.accdb"_s});
    EXPECT_EQ(OwnFiles(u"report"_s), QStringList({u"repdb.accdb"_s, u"repfrmdb.accdb"_s}));
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList{OwnLink()});
    EXPECT_EQ(installation.Forms().Value(kLinks), u";DATABASE="_s + installation.Report().Path());
    EXPECT_EQ(registry.Text(LocationsOf(u"16.0"_s) + u"\\Location0"_s, u"Path"_s), Own(u"report/"_s));
    EXPECT_EQ(Globals().ProcCounter, 0);
    EXPECT_EQ(services.dialogs.Texts(), QStringList());
}

TEST_F(UserConfiguration, HostIsPreparedBeforeAnyOfItsFilesIsTouched) {
    QStringList writesBefore;
    files->meanwhile = [&] { writesBefore.append(QString::number(registry.writes.size())); };
    PrepareUserConfig();
    // Path and AllowSubfolder, written after the configuration has been copied.
    EXPECT_EQ(writesBefore, QStringList({u"0"_s, u"2"_s, u"2"_s}));
}

TEST_F(UserConfiguration, SecondStartCopiesNothingShowsNoDialogAndAsksForNoHost) {
    const WaitDialogWatch watch;
    PrepareUserConfig();
    EXPECT_EQ(watch.shown, 1);
    copies.clear();
    registry.reads = 0;
    WriteBytes(Own(u"report/repfrmdb.accdb"_s), "the user's own");
    PrepareUserConfig();
    EXPECT_EQ(watch.shown, 1);
    EXPECT_EQ(copies, QStringList());
    EXPECT_EQ(registry.reads, 0);
    EXPECT_EQ(ReadBytes(Own(u"report/repfrmdb.accdb"_s)), "the user's own");
}

TEST_F(UserConfiguration, LostConfigurationComesBackAlone) {
    PrepareUserConfig();
    copies.clear();
    ASSERT_TRUE(QFile::remove(Own(u"conf/usrcnfg.accdb"_s)));
    const WaitDialogWatch watch;
    PrepareUserConfig();
    EXPECT_EQ(watch.shown, 0);
    EXPECT_EQ(copies, QStringList{u"usrcnfg.accdb"_s});
}

TEST_F(UserConfiguration, WithoutAHostTheLinksStayOnTheCommonTables) {
    registry.GiveHost(u"/opt/host/"_s);
    PrepareUserConfig();
    EXPECT_EQ(OwnFiles(u"report"_s), QStringList({u"repdb.accdb"_s, u"repfrmdb.accdb"_s}));
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList{u";DATABASE="_s + installation.Report().Path()});
}

TEST_F(UserConfiguration, WithoutKindsNothingIsHandled) {
    Globals().Layout.ConfigDbKind = Globals().Layout.ReportDbKind = FileKind::None;
    PrepareUserConfig();
    EXPECT_EQ(copies, QStringList());
    EXPECT_FALSE(QFileInfo::exists(installation.UserFolder(u"tester"_s)));
}

TEST_F(OlderUserConfiguration, MissingSecondTemplateFileOnlyPassesThroughTheHandler) {
    PrepareUserConfig();
    EXPECT_EQ(copies, QStringList({u"usrcnfg.mdb"_s, u"repdb.mdb*"_s, u"repfrmdb.mdb*"_s, u"repfrmdb.accdb*"_s}));
    EXPECT_EQ(OwnFiles(u"report"_s), QStringList({u"repdb.mdb"_s, u"repfrmdb.mdb"_s}));
    EXPECT_EQ(LinksOf(u"repfrmdb.mdb"_s), QStringList{OwnLink(u"repdb.mdb"_s)});
    EXPECT_EQ(Globals().ProcCounter, 1);
    EXPECT_EQ(Globals().Layout.ReportDbKind, FileKind::Mdb);
}

TEST_F(OlderUserConfiguration, BothTemplateFilesAreLinkedToTheOneWorkFile) {
    ASSERT_TRUE(QFile::copy(installation.Forms().Path(), installation.ReportFolder() + u"/repfrmdb.accdb"_s));
    PrepareUserConfig();
    EXPECT_EQ(LinksOf(u"repfrmdb.mdb"_s), QStringList{OwnLink(u"repdb.mdb"_s)});
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList{OwnLink(u"repdb.mdb"_s)});
    EXPECT_EQ(Globals().ProcCounter, 0);
}

TEST_F(UserConfiguration, ErrorRowIsLostWithoutAConnectionAndUsesUpItsNumber) {
    ASSERT_TRUE(QFile::remove(installation.Forms().Path()));
    ASSERT_TRUE(LoadEnvironment());
    // Two lost rows: the failed copy, and the failed opening for the links.
    EXPECT_EQ(Globals().ProcCounter, 2);
    EXPECT_EQ(installation.HistoryTexts(), QStringList());
    EXPECT_EQ(SampleFile(Own(u"conf/usrcnfg.accdb"_s)).Rows(u"SELECT 摘要 FROM プログラム稼動履歴"_s).size(), 0);
    EXPECT_EQ(OwnFiles(u"report"_s), QStringList{u"repdb.accdb"_s});
    EXPECT_EQ(services.dialogs.Texts(), QStringList());
}

TEST_F(UserConfiguration, ErrorRowNamesBothFolders) {
    Globals().Layout.ReportDbKind = FileKind::None;
    Globals().Layout.CommonConfFolder = u"/nowhere"_s;
    OpenConfigConnection(ConfigConnectionString(kind, installation.Configuration().Path()));
    PrepareUserConfig();
    EXPECT_EQ(installation.HistoryTexts(),
              QStringList{u"エラー ファイル usrcnfg.accdb を複写できません。 User ConfF="_s + Own(u"conf"_s) +
                          u" User Report ="_s + Own(u"report"_s)});
}

TEST_F(UserConfiguration, MissingCommonConfigurationDoesNotKeepTheReportFilesBack) {
    ASSERT_TRUE(QFile::remove(installation.Configuration().Path()));
    PrepareUserConfig();
    EXPECT_EQ(OwnFiles(u"conf"_s), QStringList());
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList{OwnLink()});
    EXPECT_EQ(Globals().ProcCounter, 1);
}

TEST_F(UserConfiguration, TemplateFileWithoutLinkedTablesIsLeftAsItIs) {
    installation.Forms().Execute(u"DROP TABLE リンクテーブル"_s);
    PrepareUserConfig();
    EXPECT_EQ(ReadBytes(Own(u"report/repfrmdb.accdb"_s)), ReadBytes(installation.Forms().Path()));
    EXPECT_EQ(Globals().ProcCounter, 0);
}

TEST_F(UserConfiguration, OnlyTablesThatAreExactlyLinkedArePointedElsewhere) {
    installation.Forms().Execute(
        u"UPDATE リンクテーブル SET 属性 = '1610612736', 接続 = ';DATABASE=/other'"
        u" WHERE rowid = (SELECT MAX(rowid) FROM リンクテーブル)"_s);
    PrepareUserConfig();
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList({OwnLink(), u";DATABASE=/other"_s}));
}

TEST_F(UserConfiguration, LinkThatCantBeRefreshedStaysAndTheOthersGoOn) {
    const QString common = u";DATABASE="_s + installation.Report().Path();
    installation.Forms().Execute(
        u"UPDATE リンクテーブル SET 元テーブル = 'なし' WHERE rowid = (SELECT MIN(rowid) FROM リンクテーブル)"_s);
    PrepareUserConfig();
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList({common, OwnLink()}));
    EXPECT_EQ(Globals().ProcCounter, 1);
}

TEST_F(UserConfiguration, WithoutRightToMakeTheFolderTheUserGetsAMessageAndTheStartEnds) {
    files->noFolderBelow = installation.UserFolder(u"tester"_s);
    EXPECT_THROW(LoadEnvironment(), platform::RuntimeError);
    const QStringList texts = services.dialogs.Texts();
    ASSERT_EQ(texts.size(), 2);
    EXPECT_TRUE(texts.first().startsWith(u"DIREXISTCHK ERROR70 書き込む権限がありません。"_s));
    EXPECT_FALSE(WaitDialogIsShown());
    EXPECT_FALSE(QFileInfo::exists(installation.UserFolder(u"tester"_s)));
}

TEST_F(UserConfiguration, JournalOfALostFileIsNotUndoneInItsFreshCopy) {
    PrepareUserConfig();
    for (const QString& lost : {u"conf/usrcnfg.accdb"_s, u"report/repdb.accdb"_s}) {
        ASSERT_TRUE(QFile::remove(Own(lost)));
        WriteBytes(Own(lost + u"-journal"_s), "what a killed program has left");
    }
    PrepareUserConfig();
    EXPECT_EQ(OwnFiles(u"conf"_s), QStringList{u"usrcnfg.accdb"_s});
    EXPECT_EQ(OwnFiles(u"report"_s), QStringList({u"repdb.accdb"_s, u"repfrmdb.accdb"_s}));
}

TEST_F(UserConfiguration, StartThatWasEndedBeforeTheFormsWereThereIsRepeatedByTheNextOne) {
    files->meanwhile = [this] {
        if (copies.size() == 2) throw std::runtime_error("the machine is switched off");
    };
    EXPECT_THROW(PrepareUserConfig(), std::runtime_error);
    UnloadWaitDialog();
    files->meanwhile = [] {};
    PrepareUserConfig();
    EXPECT_EQ(OwnFiles(u"report"_s), QStringList({u"repdb.accdb"_s, u"repfrmdb.accdb"_s}));
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList{OwnLink()});
    copies.clear();
    PrepareUserConfig();
    EXPECT_EQ(copies, QStringList());
}

TEST_F(UserConfiguration, LinksThatTheDiskRefusedAreMadeByTheNextStart) {
    Globals().LinkedTables = std::make_unique<BrokenTableEngine>();
    PrepareUserConfig();
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList{u";DATABASE="_s + installation.Report().Path()});
    Globals().LinkedTables = std::make_unique<database::SuiteTableEngine>();
    PrepareUserConfig();
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList{OwnLink()});
}

TEST_F(UserConfiguration, NothingIsCopiedBesideAJournalThatCantBeRemoved) {
    ASSERT_TRUE(QDir().mkpath(Own(u"conf"_s)));
    WriteBytes(Own(u"conf/usrcnfg.accdb-journal"_s), "what a killed program has left");
    files->unremovable = u"usrcnfg.accdb-journal"_s;
    PrepareUserConfig();
    EXPECT_EQ(OwnFiles(u"conf"_s), QStringList{u"usrcnfg.accdb-journal"_s});
    files->unremovable.clear();
    PrepareUserConfig();
    EXPECT_EQ(OwnFiles(u"conf"_s), QStringList{u"usrcnfg.accdb"_s});
}

TEST_F(UserConfiguration, WithoutRoomForTheMarkNoReportFileIsCopied) {
    files->noMark = true;
    PrepareUserConfig();
    EXPECT_EQ(OwnFiles(u"report"_s), QStringList());
    EXPECT_EQ(Globals().ProcCounter, 1);
}

TEST_F(OlderUserConfiguration, KindIsSetAtTheEndWhateverEventsDidDuringTheCopy) {
    files->meanwhile = [this] {
        if (!copies.isEmpty()) Globals().Layout.ReportDbKind = FileKind::Accdb;
    };
    PrepareUserConfig();
    EXPECT_EQ(Globals().Layout.ReportDbKind, FileKind::Mdb);
}

class FullDiskAtCopy : public UserConfiguration, public testing::WithParamInterface<const char16_t*> {};

TEST_P(FullDiskAtCopy, LeavesNoHalfFileAndTheNextStartMakesItGood) {
    files->diskFullAt = QString::fromUtf16(GetParam());
    PrepareUserConfig();
    EXPECT_FALSE((OwnFiles(u"conf"_s) + OwnFiles(u"report"_s)).contains(files->diskFullAt));
    EXPECT_GE(Globals().ProcCounter, 1);
    files->diskFullAt.clear();
    PrepareUserConfig();
    EXPECT_EQ(OwnFiles(u"conf"_s), QStringList{u"usrcnfg.accdb"_s});
    EXPECT_EQ(OwnFiles(u"report"_s), QStringList({u"repdb.accdb"_s, u"repfrmdb.accdb"_s}));
    EXPECT_EQ(LinksOf(u"repfrmdb.accdb"_s), QStringList{OwnLink()});
    EXPECT_EQ(ReadBytes(Own(u"conf/usrcnfg.accdb"_s)), ReadBytes(installation.Configuration().Path()));
}
INSTANTIATE_TEST_SUITE_P(Each, FullDiskAtCopy, testing::Values(u"usrcnfg.accdb", u"repdb.accdb", u"repfrmdb.accdb"));

class UserNames : public UserConfiguration, public testing::WithParamInterface<const char16_t*> {};

TEST_P(UserNames, BecomeTheFolderAsTheyAre) {
    services.system.userName = QString::fromUtf16(GetParam());
    ASSERT_TRUE(LoadEnvironment());
    const QString own = installation.UserFolder(services.system.userName) + u"/report/"_s;
    EXPECT_EQ(SampleFile(own + u"repfrmdb.accdb"_s).Value(kLinks), u";DATABASE="_s + own + u"repdb.accdb"_s);
    EXPECT_EQ(Globals().ProcCounter, 0);
}
INSTANTIATE_TEST_SUITE_P(Odd, UserNames, testing::Values(u"Taro Yamada", u"山田　太郎", u"o'hara", u"..x"));

TEST_F(UserConfiguration, UserNameThatLeadsElsewhereMakesNothing) {
    services.system.userName = u".."_s;
    EXPECT_FALSE(LoadEnvironment());
    EXPECT_EQ(copies, QStringList());
    EXPECT_EQ(QDir(installation.Root() + u"/users"_s).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList());
}
