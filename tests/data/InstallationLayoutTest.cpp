#include <QDir>

#include "data/DataFixture.h"
#include "data/Environment.h"
#include "data/Files.h"

using namespace Qt::StringLiterals;

namespace {

class InstallationLayoutOf : public InInstallation {
  protected:
    bool LoadFrom(const QString& applicationFolder) {
        services.system.applicationFolder = applicationFolder;
        return LoadEnvironment();
    }
    const InstallationLayout& Layout() const { return Globals().Layout; }
    void Touch(const QString& below) { WriteBytes(installation.Root() + u'/' + below, "x"); }
};

}  // namespace

TEST_F(InstallationLayoutOf, FoldersLieBesideTheProgramFolder) {
    ASSERT_TRUE(LoadFrom(installation.ProgramFolder()));
    EXPECT_EQ(Layout().RootFolder, installation.Root());
    EXPECT_EQ(Layout().ProgramFolder, installation.Root() + u"/prgbin"_s);
    EXPECT_EQ(Layout().CommonConfFolder, installation.Root() + u"/conf"_s);
    EXPECT_EQ(Layout().CommonReportFolder, installation.Root() + u"/report"_s);
    EXPECT_EQ(Layout().ManualFolder, installation.Root() + u"/manual"_s);
    EXPECT_EQ(Layout().UserConfFolder, installation.Root() + u"/conf"_s);
    EXPECT_EQ(Layout().UserReportFolder, installation.Root() + u"/report"_s);
    EXPECT_EQ(Layout().GeneralDbPath, installation.General().Path());
    EXPECT_EQ(Layout().GeneralDbKind, FileKind::Accdb);
    EXPECT_EQ(Layout().ConfigDbKind, FileKind::Accdb);
    EXPECT_EQ(Layout().ReportDbKind, FileKind::Accdb);
}

TEST_F(InstallationLayoutOf, MarkerInCapitalsIsAcceptedAndASubfolderDropped) {
    ASSERT_TRUE(LoadFrom(installation.Root() + u"/PRGBIN/sub/deeper"_s));
    EXPECT_EQ(Layout().ProgramFolder, installation.Root() + u"/prgbin"_s);
    EXPECT_EQ(Layout().RootFolder, installation.Root());
}

TEST_F(InstallationLayoutOf, TheFirstOfTwoMarkersDecidesTheRoot) {
    ASSERT_TRUE(LoadFrom(installation.Root() + u"/prgbin/other/prgbin"_s));
    EXPECT_EQ(Layout().RootFolder, installation.Root());
}

TEST_F(InstallationLayoutOf, TheFirstMarkerDecidesAlsoWhereNoInstallationIs) {
    EXPECT_FALSE(LoadFrom(u"/prgbin"_s + installation.ProgramFolder()));
    EXPECT_EQ(Layout().RootFolder, QString());
    EXPECT_EQ(Layout().CommonConfFolder, u"/conf"_s);
}

TEST_F(InstallationLayoutOf, ARunFromTheSourceFolderUsesTheProgramFolder) {
    ASSERT_TRUE(LoadFrom(installation.Root() + u"/PrgSrc"_s));
    EXPECT_EQ(Layout().ProgramFolder, installation.Root() + u"/prgbin"_s);
}

TEST_F(InstallationLayoutOf, PrgbinWinsOverAnEarlierPrgsrc) {
    EXPECT_FALSE(LoadFrom(installation.Root() + u"/prgsrc/prgbin"_s));
    EXPECT_EQ(Layout().RootFolder, installation.Root() + u"/prgsrc"_s);
}

TEST_F(InstallationLayoutOf, APathWithoutAMarkerIsNoInstallationAndSaysNothing) {
    Globals().ConfigConnectionOpen = true;
    EXPECT_FALSE(LoadFrom(installation.Root() + u"/bin"_s));
    EXPECT_FALSE(Globals().ConfigConnectionOpen);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(InstallationLayoutOf, WithoutAConfigurationFileThereIsNoStartAndNoMessage) {
    ASSERT_TRUE(QFile::remove(installation.Configuration().Path()));
    EXPECT_FALSE(LoadFrom(installation.ProgramFolder()));
    EXPECT_EQ(Layout().ConfigDbKind, FileKind::None);
    EXPECT_FALSE(Globals().ConfigConnectionOpen);
    EXPECT_FALSE(QFile::exists(installation.Configuration().Path()));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(InstallationLayoutOf, AccdbWinsOverMdbForEachDatabase) {
    for (const QString& name : {u"data/gnrdb.mdb"_s, u"conf/usrcnfg.mdb"_s, u"report/repdb.mdb"_s}) Touch(name);
    ASSERT_TRUE(LoadFrom(installation.ProgramFolder()));
    EXPECT_EQ(Layout().GeneralDbPath, installation.Root() + u"/data/gnrdb.accdb"_s);
    EXPECT_EQ(Layout().GeneralDbKind, FileKind::Accdb);
    EXPECT_EQ(Layout().ConfigDbKind, FileKind::Accdb);
    EXPECT_EQ(Layout().ReportDbKind, FileKind::Accdb);
}

TEST_F(InstallationLayoutOf, MissingGeneralAndReportFilesStopNothing) {
    ASSERT_TRUE(QFile::remove(installation.General().Path()));
    ASSERT_TRUE(QFile::remove(installation.Report().Path()));
    ASSERT_TRUE(LoadFrom(installation.ProgramFolder()));
    EXPECT_EQ(Layout().GeneralDbPath, QString());
    EXPECT_EQ(Layout().GeneralDbKind, FileKind::None);
    EXPECT_EQ(Layout().ReportDbKind, FileKind::None);
}

TEST_F(InstallationLayoutOf, AFolderUnderTheNameOfAFileIsNoFile) {
    ASSERT_TRUE(QFile::remove(installation.Report().Path()));
    ASSERT_TRUE(QDir().mkpath(installation.Report().Path()));
    ASSERT_TRUE(LoadFrom(installation.ProgramFolder()));
    EXPECT_EQ(Layout().ReportDbKind, FileKind::None);
}

TEST_F(InstallationLayoutOf, AnInstallationOfTheOlderGenerationHasKindTwo) {
    const SampleInstallation older({.staff = 1, .mdb = true});
    ASSERT_TRUE(LoadFrom(older.ProgramFolder()));
    EXPECT_EQ(Layout().GeneralDbPath, older.Root() + u"/data/gnrdb.mdb"_s);
    EXPECT_EQ(Layout().GeneralDbKind, FileKind::Mdb);
    EXPECT_EQ(Layout().ConfigDbKind, FileKind::Mdb);
    EXPECT_EQ(Layout().ReportDbKind, FileKind::Mdb);
    EXPECT_EQ(Globals().GeneralDatabase.プロバイダ名, u"Microsoft.Jet.OLEDB.4.0"_s);
}

TEST_F(InstallationLayoutOf, NamesOfUserAndComputerAreKept) {
    ASSERT_TRUE(LoadFrom(installation.ProgramFolder()));
    EXPECT_EQ(Globals().OsUserName, u"tester"_s);
    EXPECT_EQ(Globals().UserId, u"tester"_s);
    EXPECT_EQ(Globals().ComputerName, u"desk1"_s);
}

TEST_F(InstallationLayoutOf, AUserNameThatIsNoFolderNameEndsTheStart) {
    for (const QString& name : {u""_s, u"."_s, u".."_s, u"a/b"_s, u"a\\b"_s, u"/"_s, QString(255, u'a')}) {
        services.system.userName = name;
        EXPECT_FALSE(LoadFrom(installation.ProgramFolder())) << name.toStdString();
        EXPECT_FALSE(Globals().ConfigConnectionOpen);
    }
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    services.system.userName = u"..a"_s;
    EXPECT_TRUE(LoadFrom(installation.ProgramFolder()));
}

TEST_F(InstallationLayoutOf, AComputerWithoutANameStartsAllTheSame) {
    services.system.computerName.clear();
    EXPECT_TRUE(LoadFrom(installation.ProgramFolder()));
    EXPECT_EQ(Globals().ComputerName, QString());
}

TEST(CutAtNull, GivesTheTextBeforeTheFirstNul) {
    const QChar nul(u'\0');
    EXPECT_EQ(CutAtNull(u"abc"_s + nul + u"def"_s + nul), u"abc"_s);
    EXPECT_EQ(CutAtNull(nul + u"abc"_s), QString());
    EXPECT_EQ(CutAtNull(u"abc"_s), QString());
    EXPECT_EQ(CutAtNull(QString()), QString());
    EXPECT_EQ(CutAtNull(QString(255, u' ')), QString());
}

TEST_F(InstallationLayoutOf, ANameOf254CharactersStillFits) {
    services.system.userName = QString(254, u'a');
    EXPECT_EQ(ReadOsUserName(), services.system.userName);
}

TEST_F(InstallationLayoutOf, TheScreenIsMeasuredInPixels) {
    services.system.screen = QSize(1024, 768);
    MeasureScreen();
    EXPECT_EQ(Globals().ScreenSize, QSize(1024, 768));
}

TEST_F(InstallationLayoutOf, ACopyOverwritesAndAFailureIsOnlyAResult) {
    const QString source = installation.Root() + u"/a"_s, target = installation.Root() + u"/b"_s;
    WriteBytes(source, "new");
    WriteBytes(target, "old and longer");
    EXPECT_TRUE(CopyFileOver(source, target));
    EXPECT_EQ(ReadBytes(target), "new");
    EXPECT_FALSE(CopyFileOver(installation.Root() + u"/none"_s, target));
    EXPECT_EQ(ReadBytes(target), "new");
    EXPECT_TRUE(FileExistsCheck(target));
    EXPECT_FALSE(FileExistsCheck(installation.Root() + u"/none"_s));
    EXPECT_FALSE(FileExistsCheck(installation.Root()));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST(DesktopFiles, KindFollowsTheSuffixInAnyCase) {
    for (const QString& file : {u"/data/gnrdb.mdb"_s, u"/data/GNRDB.MDB"_s, u"gnrdb.Mdb"_s})
        EXPECT_EQ(KindOfDesktopFile(file), FileKind::Mdb) << file.toStdString();
    for (const QString& file : {u"/data/gnrdb.accdb"_s, u"/data/GNRDB.ACCDB"_s, u"mdb"_s})
        EXPECT_EQ(KindOfDesktopFile(file), FileKind::Accdb) << file.toStdString();
}
