// Command upgrade, and the menu entries.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "database/sqlite/SqliteQuery.h"
#include "setup/RunTool.h"
#include "setup/storage/InstallationRights.h"
#include "setup/storage/Installer.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

const QString kUpToDate = u"このインストールは新しい版になっています。\n"_s;

QStringList Rows(const QString& file, const QString& sql) {
    const database::SqliteDatabase database = database::OpenSqliteFile(file, database::ConnectMode::Read);
    const database::SqliteStatement rows = database::PrepareSql(database.get(), sql);
    QStringList texts;
    while (database::NextRow(rows.get())) texts.append(database::ColumnText(rows.get(), 0));
    return texts;
}

void Alter(const QString& file, const QStringList& statements) {
    const database::SqliteDatabase database = database::OpenSqliteFile(file, database::ConnectMode::ReadWrite);
    for (const QString& sql : statements) database::RunSql(database.get(), sql);
}

/// An installation, and a folder with programs of a newer version.
class SuiteSetupUpgrade : public testing::Test {
  protected:
    SuiteSetupUpgrade() {
        for (const QString& program : {u"要員名簿照会"_s, u"要員台帳更新"_s, u"suite-setup"_s, u"report-host"_s})
            WriteProgram(programs.filePath(program), "new " + program.toUtf8());
        Upgrade();
    }

    static void WriteProgram(const QString& file, const QByteArray& bytes) {
        QDir().mkpath(QFileInfo(file).path());
        WriteBytes(file, bytes);
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    ToolOutput Upgrade(const QStringList& options = {}) const { return UpgradeFrom(programs.path(), options); }
    ToolOutput UpgradeFrom(const QString& folder, const QStringList& options = {}) const {
        ToolOutput output;
        QTextStream out(&output.out), err(&output.err);
        output.status =
            setup::RunSetup(QStringList{u"upgrade"_s, Root()} + options, {out, err, folder, [] { return false; }});
        return output;
    }
    QString Root() const { return installation.Root(); }
    QString General() const { return Root() + u"/data/gnrdb.accdb"_s; }
    QString Configuration() const { return installation.ConfFolder() + u"/usrcnfg.accdb"_s; }
    QString Report(const QString& name) const { return installation.ReportFolder() + u'/' + name; }

    TestServices services;
    SampleInstallation installation{{.staff = 3}};
    QTemporaryDir programs;
};

TEST_F(SuiteSetupUpgrade, OfTheSameVersionChangesNothing) {
    const QByteArray general = ReadBytes(General()), configuration = ReadBytes(Configuration());
    const ToolOutput output = Upgrade();
    EXPECT_EQ(output.status, 0);
    EXPECT_EQ(output.out, kUpToDate);
    EXPECT_EQ(output.err, u""_s);
    EXPECT_EQ(ReadBytes(General()), general);
    EXPECT_EQ(ReadBytes(Configuration()), configuration);
}

TEST_F(SuiteSetupUpgrade, AddsTablesColumnsAndIndexesAndTouchesNoRow) {
    const QStringList before = Rows(General(), u"SELECT コード || 氏名 || COALESCE(カナ, '') FROM M担当者"_s);
    const QStringList schema = Rows(General(), u"SELECT name FROM sqlite_master ORDER BY name"_s);
    const QStringList columns = Rows(General(), u"SELECT name FROM pragma_table_info('M担当者') ORDER BY name"_s);
    const QString index = Rows(General(), u"SELECT name FROM sqlite_master WHERE name LIKE 'M担当者_索引%'"_s).value(0);
    ASSERT_FALSE(index.isEmpty());
    Alter(General(), {u"DROP INDEX \"%1\""_s.arg(index), u"ALTER TABLE M担当者 DROP COLUMN 担当者メモ"_s,
                      u"ALTER TABLE M担当者 ADD COLUMN 社内番号 TEXT"_s, u"UPDATE M担当者 SET 社内番号 = 'x'"_s,
                      u"DROP TABLE M役職"_s});
    const ToolOutput output = Upgrade();
    EXPECT_EQ(output.status, 0) << output.err.toStdString();
    for (const QString& added : {u"列 M担当者.担当者メモ"_s, u"テーブル M役職"_s, u"索引 "_s + index})
        EXPECT_TRUE(output.out.contains(u"%1: %2 を追加しました。\n"_s.arg(General(), added)))
            << output.out.toStdString();
    EXPECT_EQ(Rows(General(), u"SELECT name FROM sqlite_master ORDER BY name"_s), schema);
    EXPECT_EQ(
        Rows(General(), u"SELECT name FROM pragma_table_info('M担当者') WHERE name <> '社内番号' ORDER BY name"_s),
        columns);
    EXPECT_EQ(Rows(General(), u"SELECT コード || 氏名 || COALESCE(カナ, '') FROM M担当者"_s), before);
    EXPECT_EQ(Rows(General(), u"SELECT DISTINCT 社内番号 FROM M担当者"_s), QStringList{u"x"_s});
    EXPECT_EQ(Upgrade().out, kUpToDate);
}

TEST_F(SuiteSetupUpgrade, UpgradesConfigurationWorkTablesAndPrivateCopiesAlike) {
    const QString own = Root() + u"/users/花子/conf/usrcnfg.accdb"_s;
    QDir().mkpath(QFileInfo(own).path());
    ASSERT_TRUE(QFile::copy(Configuration(), own));
    setup::CorrectRights(Root());
    for (const QString& file : {Configuration(), own})
        Alter(file, {u"ALTER TABLE 動作環境定義 DROP COLUMN バックアップ方法"_s});
    Alter(Report(u"repdb.accdb"_s), {u"DROP TABLE 要員名簿照会"_s});
    const ToolOutput output = Upgrade();
    EXPECT_EQ(output.out, u"%1: 列 動作環境定義.バックアップ方法 を追加しました。\n"_s.arg(Configuration()) +
                              u"%1: テーブル 要員名簿照会 を追加しました。\n"_s.arg(Report(u"repdb.accdb"_s)) +
                              u"%1: 列 動作環境定義.バックアップ方法 を追加しました。\n"_s.arg(own));
}

TEST_F(SuiteSetupUpgrade, AddsAMissingReportWithItsLinkAndKeepsThoseThatASiteHasChanged) {
    const QString forms = Report(u"repfrmdb.accdb"_s);
    Alter(forms, {u"DELETE FROM 帳票 WHERE 名称 = '要員名簿照会はがき'"_s,
                  u"DELETE FROM リンクテーブル WHERE 名称 = '要員名簿照会はがき'"_s,
                  u"UPDATE 帳票 SET 定義 = 'own' WHERE 名称 = '要員名簿照会'"_s});
    EXPECT_EQ(
        Upgrade().out,
        u"%1: 帳票 要員名簿照会はがき を追加しました。\n%1: リンク 要員名簿照会はがき を追加しました。\n"_s.arg(forms));
    EXPECT_EQ(Rows(forms, u"SELECT 定義 FROM 帳票 WHERE 名称 = '要員名簿照会'"_s), QStringList{u"own"_s});
    EXPECT_EQ(Rows(forms, u"SELECT 接続 FROM リンクテーブル WHERE 名称 = '要員名簿照会はがき'"_s),
              Rows(forms, u"SELECT 接続 FROM リンクテーブル WHERE 名称 = '要員名簿照会'"_s));
}

TEST_F(SuiteSetupUpgrade, PutsNewProgramsInPlaceAlsoOfAHostOfAnotherVersion) {
    WriteProgram(Root() + u"/host/OFFICE17/MSACCESS.EXE"_s, "old");
    setup::CorrectRights(Root());
    WriteProgram(programs.filePath(u"要員名簿照会"_s), "newest");
    const ToolOutput output = Upgrade();
    EXPECT_EQ(output.out, u"prgbin/要員名簿照会 を新しくしました。\nhost/OFFICE17/MSACCESS.EXE を新しくしました。\n"_s);
    EXPECT_EQ(ReadBytes(Root() + u"/prgbin/要員名簿照会"_s), "newest");
    EXPECT_EQ(ReadBytes(Root() + u"/host/OFFICE17/MSACCESS.EXE"_s), "new report-host");
    EXPECT_EQ(QDir(Root() + u"/prgbin"_s).entryList({u"*.new"_s}, QDir::Files), QStringList());
    EXPECT_TRUE(QFileInfo(Root() + u"/prgbin/要員名簿照会"_s).isExecutable());
}

TEST_F(SuiteSetupUpgrade, AProgramThatRunsGoesOnAsItIs) {
    const QString program = Root() + u"/prgbin/要員名簿照会"_s;
    QFile::remove(program);
    ASSERT_TRUE(QFile::copy(u"/bin/sleep"_s, program));
    QProcess running;
    running.start(program, {u"60"_s});
    ASSERT_TRUE(running.waitForStarted());
    EXPECT_EQ(Upgrade().status, 0);
    EXPECT_EQ(ReadBytes(program), "new " + u"要員名簿照会"_s.toUtf8());
    EXPECT_EQ(running.state(), QProcess::Running);
    running.kill();
    running.waitForFinished();
}

TEST_F(SuiteSetupUpgrade, LeavesAChangedManualAndPutsTheNewOneBesideIt) {
    const QString manual = Root() + u"/manual/要員名簿照会.doc"_s;
    const QByteArray standard = ReadBytes(manual);
    WriteBytes(manual, "own");
    EXPECT_EQ(Upgrade().out, u"%1 は変更されているので、新しい版を %1.new に置きました。\n"_s.arg(manual) + kUpToDate);
    EXPECT_EQ(ReadBytes(manual), "own");
    EXPECT_EQ(ReadBytes(manual + u".new"_s), standard);
    QFile::remove(manual);
    EXPECT_EQ(Upgrade().out, u"%1 を作りました。\n"_s.arg(manual));
    EXPECT_EQ(ReadBytes(manual), standard);
}

TEST_F(SuiteSetupUpgrade, FollowsTheDefinitionToTheGeneralDatabase) {
    const QString elsewhere = programs.filePath(u"gnr.accdb"_s);
    ASSERT_TRUE(QFile::rename(General(), elsewhere));
    Alter(elsewhere, {u"DROP TABLE M役職"_s});
    Alter(Configuration(), {u"UPDATE データベース定義 SET データソース名 = '%1'"_s.arg(elsewhere)});
    EXPECT_EQ(Upgrade().out, u"%1: テーブル M役職 を追加しました。\n"_s.arg(elsewhere));
}

TEST_F(SuiteSetupUpgrade, LeavesAGeneralDatabaseOnAServerAlone) {
    Alter(Configuration(), {u"UPDATE データベース定義 SET db = 'S', データソース名 = 'x'"_s});
    EXPECT_EQ(Upgrade().out,
              u"一般データベースはサーバーにあるので、そのままです。"
              u"--odbc に所有者の接続文字列を付けると、足りない表や列を加えます。\n"_s +
                  kUpToDate);
}

TEST_F(SuiteSetupUpgrade, WithAServersOwnerForAGeneralDatabaseInAFileIsRefusedAndChangesNothing) {
    Alter(Configuration(), {u"ALTER TABLE 動作環境定義 DROP COLUMN バックアップ方法"_s});
    const QByteArray configuration = ReadBytes(Configuration());
    const ToolOutput output = Upgrade({u"--odbc"_s, u"DSN=x"_s});
    EXPECT_EQ(output.status, 2);
    EXPECT_EQ(output.err.section(u'\n', 0, 0),
              u"suite-setup: 一般データベースはファイルです。--odbc は付けられません。"_s);
    EXPECT_EQ(ReadBytes(Configuration()), configuration);
}

TEST_F(SuiteSetupUpgrade, OfAServerThatIsNotReachedChangesNothingAndSaysWhy) {
    Alter(Configuration(), {u"UPDATE データベース定義 SET db = 'S', データソース名 = 'x'"_s});
    WriteProgram(programs.filePath(u"要員名簿照会"_s), "newest");
    const ToolOutput output = Upgrade({u"--odbc"_s, u"DSN=nirgends"_s});
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.err,
              u"suite-setup: サーバーの一般データベースを更新できません。"
              u"データソース「nirgends」が ODBC に登録されていません。\n"_s);
    EXPECT_NE(ReadBytes(Root() + u"/prgbin/要員名簿照会"_s), "newest");
}

TEST_F(SuiteSetupUpgrade, ReportsWhichFileCannotBeChangedAndLeavesItAndTheProgramsAsTheyWere) {
    WriteBytes(General(), "damaged");
    WriteProgram(programs.filePath(u"要員名簿照会"_s), "newest");
    const ToolOutput output = Upgrade();
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(output.err.startsWith(u"suite-setup: %1 を更新できません。"_s.arg(General())))
        << output.err.toStdString();
    EXPECT_EQ(ReadBytes(General()), "damaged");
    EXPECT_NE(ReadBytes(Root() + u"/prgbin/要員名簿照会"_s), "newest");
}

TEST_F(SuiteSetupUpgrade, ByTheInstallationsOwnToolOrWithoutProgramsIsRefused) {
    const ToolOutput own = UpgradeFrom(Root() + u"/prgbin"_s);
    EXPECT_EQ(own.status, 2);
    EXPECT_EQ(own.err.section(u'\n', 0, 0),
              u"suite-setup: 新しい版の suite-setup で実行してください。これはこのインストール自身のものです。"_s);
    QFile::remove(programs.filePath(u"report-host"_s));
    const ToolOutput without = Upgrade();
    EXPECT_EQ(without.status, 2);
    EXPECT_EQ(without.err.section(u'\n', 0, 0),
              u"suite-setup: %1 に新しいプログラムが揃っていません。"_s.arg(programs.path()));
}

TEST(MenuEntry, QuotesWhateverThePathHolds) {
    EXPECT_EQ(setup::MenuEntry(u"/srv/名簿 100% $a`b"_s),
              "[Desktop Entry]\nType=Application\nVersion=1.4\nName=要員名簿照会（名簿 100% $a`b）\n"
              "Comment=/srv/名簿 100% $a`b の要員名簿を照会します\nTryExec=/srv/名簿 100% $a`b/prgbin/要員名簿照会\n"
              "Exec=\"/srv/名簿 100%% \\\\$a\\\\`b/prgbin/要員名簿照会\"\nIcon=youin-meibo\nTerminal=false\n"
              "StartupNotify=true\nStartupWMClass=youin-meibo\nCategories=Office;Database;\n");
}

TEST_F(SuiteSetupUpgrade, EntersEachInstallationOnceInTheMenu) {
    qputenv("XDG_DATA_HOME", programs.filePath(u"share"_s).toUtf8());
    const ToolOutput first = Upgrade({u"--menu"_s}), second = Upgrade({u"--menu"_s});
    const ToolOutput other = RunTool({u"init"_s, programs.filePath(u"other"_s), u"--staff"_s, u"1"_s, u"--menu"_s});
    qunsetenv("XDG_DATA_HOME");
    EXPECT_EQ(first.out, second.out);
    const QDir menu(programs.filePath(u"share/applications"_s));
    const QStringList entries = menu.entryList(QDir::Files);
    ASSERT_EQ(entries.size(), 2);
    const QString own = first.out.section(u' ', 0, 0);
    EXPECT_EQ(first.out, u"%1 をメニューに登録しました。\n%2"_s.arg(own, kUpToDate));
    EXPECT_EQ(ReadBytes(own), setup::MenuEntry(Root()));
    EXPECT_TRUE(other.out.contains(u" をメニューに登録しました。\n"_s));
}

}  // namespace

TEST_F(SuiteSetupUpgrade, FullWidthBlanksBelongToTheNameOfTheGeneralDatabase) {
    const QString file = General() + u'　';
    ASSERT_TRUE(QFile::rename(General(), file));
    installation.SetDefinition(u"データソース名"_s, u' ' + file + u' ');
    const ToolOutput output = Upgrade();
    EXPECT_EQ(output.out, kUpToDate) << output.err.toStdString();
}
