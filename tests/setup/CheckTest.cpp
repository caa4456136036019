// check and move.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include "data/UserConfiguration.h"
#include "frame/ProgramGlobals.h"
#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"
#include "support/StandInRegistry.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

/// An installation with private copies, a registered host, and the copies of one user.
class SuiteSetupCheck : public testing::Test {
  protected:
    SuiteSetupCheck() {
        for (const QString& program : {u"prgbin/要員名簿照会"_s, u"host/OFFICE16/MSACCESS.EXE"_s}) {
            const QString file = installation.Root() + u'/' + program;
            QDir().mkpath(QFileInfo(file).path());
            WriteBytes(file, "#!/bin/true\n");
            QFile::setPermissions(file, QFile::ReadOwner | QFile::ExeOwner);
        }
        kept = qgetenv("MEIBO_USER_REGISTRY");
        qputenv("MEIBO_USER_REGISTRY", registry.UserFile().toUtf8());
        registry.GiveHost(installation.Root() + u"/host/OFFICE16/"_s);
        InstallationLayout& layout = Globals().Layout;
        layout.CommonConfFolder = installation.ConfFolder();
        layout.CommonReportFolder = installation.ReportFolder();
        layout.UserConfFolder = installation.UserFolder(u"tester"_s) + u"/conf"_s;
        layout.UserReportFolder = Report();
        layout.ConfigDbKind = layout.ReportDbKind = kAccdb;
        PrepareUserConfig();
    }
    ~SuiteSetupCheck() override { qputenv("MEIBO_USER_REGISTRY", kept); }

    QString Report() const { return installation.UserFolder(u"tester"_s) + u"/report"_s; }
    ToolOutput Check(const QStringList& options = {}) const {
        return RunTool(QStringList{u"check"_s, installation.Root()} + options);
    }
    /// The tool names exactly this fault, and fails.
    void ExpectFault(const QString& fault) const {
        const ToolOutput output = Check({u"--user"_s, u"tester"_s});
        EXPECT_EQ(output.status, 1);
        EXPECT_TRUE(output.out.contains(u"・"_s + fault)) << output.out.toStdString();
        EXPECT_EQ(output.err, u"suite-setup: 問題が 1 件あります。\n"_s);
    }

    TestServices services;
    SampleInstallation installation{{.staff = 1, .installKind = 1}};
    StandInRegistry& registry = UseStandInRegistry();
    QByteArray kept;
};

}  // namespace

TEST_F(SuiteSetupCheck, FindsNothingInAWholeInstallation) {
    const ToolOutput output = Check();
    EXPECT_EQ(output.status, 0) << output.out.toStdString() << output.err.toStdString();
    EXPECT_EQ(output.out, u"利用者 tester\n問題はありません。\n"_s);
}

TEST_F(SuiteSetupCheck, TellsAMissingFormsFile) {
    QFile::remove(Report() + u"/repfrmdb.accdb"_s);
    ExpectFault(u"帳票ファイル %1/repfrmdb.accdb がありません。\n"_s.arg(Report()));
}

TEST_F(SuiteSetupCheck, TellsABrokenConfiguration) {
    const QString file = installation.UserFolder(u"tester"_s) + u"/conf/usrcnfg.accdb"_s;
    WriteBytes(file, "");
    ExpectFault(u"構成データベース %1 を開けません。"_s.arg(file));
}

TEST_F(SuiteSetupCheck, TellsATableThatIsLinkedElsewhere) {
    const SampleFile forms(Report() + u"/repfrmdb.accdb"_s);
    forms.Execute(
        u"UPDATE リンクテーブル SET 接続 = ';DATABASE=/other/repdb.accdb'"
        u" WHERE rowid = (SELECT MIN(rowid) FROM リンクテーブル)"_s);
    const QString table = forms.Value(u"SELECT 名称 FROM リンクテーブル ORDER BY rowid"_s);
    ExpectFault(
        u"帳票ファイル %1 のテーブル %2 が %3/repdb.accdb ではなく /other/repdb.accdb にリンクしています。\n"_s.arg(
            forms.Path(), table, Report()));
}

TEST_F(SuiteSetupCheck, TellsAFolderThatIsNotTrusted) {
    registry.Give(LocationsOf(u"16.0"_s) + u"\\Location0"_s, u"Path"_s, u"/elsewhere/"_s);
    ExpectFault(u"帳票ホストがフォルダ %1 を信頼していません。"_s.arg(Report()));
}

TEST_F(SuiteSetupCheck, TellsAMissingHost) {
    registry.GiveHost(u"/nowhere/OFFICE16/"_s);
    ExpectFault(u"登録されている帳票ホスト /nowhere/OFFICE16/MSACCESS.EXE がありません。\n"_s);
}

TEST_F(SuiteSetupCheck, TellsAUserWithoutFiles) {
    const ToolOutput output = Check({u"--user"_s, u"somebody"_s});
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.out, u"利用者 somebody\n・この利用者のファイルがまだありません。最初の起動で作られます。\n"_s);
}

TEST_F(SuiteSetupCheck, RefusesAFolderWithoutInstallationAndAUserElsewhere) {
    EXPECT_EQ(RunTool({u"check"_s, u"/nowhere"_s}).status, 2);
    EXPECT_EQ(Check({u"--user"_s, u".."_s}).status, 2);
}

TEST_F(SuiteSetupCheck, MoveMakesACopyUseItsOwnFilesAlone) {
    QTemporaryDir other;
    const QString copy = other.filePath(u"copy"_s);
    ASSERT_EQ(QProcess::execute(u"cp"_s, {u"-a"_s, installation.Root(), copy}), 0);
    ASSERT_EQ(RunTool({u"move"_s, copy}).status, 0);
    for (const QString& conf : {copy + u"/conf"_s, copy + u"/users/tester/conf"_s})
        EXPECT_EQ(SampleFile(conf + u"/usrcnfg.accdb"_s).Value(u"SELECT データソース名 FROM データベース定義"_s),
                  copy + u"/data/gnrdb.accdb"_s);
    for (const QString& report : {copy + u"/report"_s, copy + u"/users/tester/report"_s})
        EXPECT_EQ(SampleFile(report + u"/repfrmdb.accdb"_s).Rows(u"SELECT DISTINCT 接続 FROM リンクテーブル"_s),
                  QList<QStringList>{{u";DATABASE="_s + report + u"/repdb.accdb"_s}});
    EXPECT_EQ(RunTool({u"move"_s, copy}).out, u"変更するところはありませんでした。\n"_s);
}

TEST_F(SuiteSetupCheck, MoveTellsAGeneralDatabaseElsewhereAndFails) {
    installation.SetDefinition(u"データソース名"_s, u"/elsewhere/staff.accdb"_s);
    const ToolOutput output = RunTool({u"move"_s, installation.Root()});
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(output.err.contains(u"一般データベース /elsewhere/staff.accdb は"_s)) << output.err.toStdString();
    EXPECT_EQ(installation.Configuration().Value(u"SELECT データソース名 FROM データベース定義"_s),
              u"/elsewhere/staff.accdb"_s);
}
