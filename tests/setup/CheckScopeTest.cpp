// Command check: its users, private copies, clock, printers and servers, and what it does with installations that it
// can't read.

#include <QDateTime>
#include <QDirIterator>

#include "data/Catalogue.h"
#include "setup/CheckFixture.h"
#include "setup/checks/Checks.h"
#include "setup/commands/VerbTable.h"
#include "support/GivenAway.h"
#include "support/PrintService.h"

namespace {

constexpr int kTimeout = 60000;  // milliseconds

class CheckScopeTest : public SuiteSetupCheck {
  protected:
    QString Own(const QString& file) const { return installation.UserFolder(u"tester"_s) + u'/' + file; }
    SampleFile OwnConfiguration() const { return SampleFile(Own(u"conf/usrcnfg.accdb"_s)); }
    SampleFile OwnTemplates() const { return SampleFile(Own(u"report/repfrmdb.accdb"_s)); }

    /// Runs the command lines of an output of check in a shell, then starts a program as the user, which copies what is
    /// missing.
    void Follow(const QString& output) const {
        QString commands;
        for (const QString& line : output.split(u'\n'))
            if (line.startsWith(u"    "_s)) commands += line.mid(4) + u'\n';
        QProcess shell;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"PATH"_s, QStringLiteral(SUITE_PROGRAMS) + u':' + environment.value(u"PATH"_s));
        shell.setProcessEnvironment(environment);
        shell.start(u"bash"_s, {u"-e"_s, u"-c"_s, commands});
        ASSERT_TRUE(shell.waitForFinished(kTimeout));
        ASSERT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().toStdString();
        PrepareUserConfig();
    }
    /// Expects these findings, then that their advice leads to an installation without any.
    void ExpectFixable(const QString& findings) const {
        const ToolOutput output = Check();
        EXPECT_EQ(output.out.section(u'\n', 1), findings);
        Follow(output.out);
        EXPECT_EQ(Check().out, u"利用者 tester\n問題はありません。\n"_s);
    }
    /// Copies the private files for another user, with links to the copied work tables.
    void MakeUser(const QString& name) const {
        const QString report = installation.UserFolder(name) + u"/report"_s;
        ASSERT_TRUE(QDir().mkpath(report) && QDir().mkpath(installation.UserFolder(name) + u"/conf"_s));
        for (const QString& file : {u"conf/usrcnfg.accdb"_s, u"report/repdb.accdb"_s, u"report/repfrmdb.accdb"_s})
            ASSERT_TRUE(QFile::copy(Own(file), installation.UserFolder(name) + u'/' + file));
        SampleFile(report + u"/repfrmdb.accdb"_s)
            .Execute(
                u"PRAGMA synchronous = OFF; UPDATE リンクテーブル SET 接続 = ';DATABASE=%1/repdb.accdb'"_s.arg(report));
        // Appended as text: the registry flushes each of its writes.
        QFile file(registry.UserFile());
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(u"[%1\\Location_%2]\n\"Path\"=\"%3/\"\n"_s.arg(LocationsOf(u"16.0"_s), name, report).toUtf8());
    }
    void AddHistory(const QString& time) const {
        OwnConfiguration().Execute(
            u"INSERT INTO プログラム稼動履歴 (実行日付, 摘要) VALUES (%1, '開始')"_s.arg(SqlLiteral(time)));
    }
};

QString AsNextStart(const QString& what, const QString& effect, const QString& command) {
    return u"・%1\n  影響: %2\n"
           u"  対処: 次を実行し、この利用者がプログラムを起動してください（共通のものから複写されます）。\n    %3\n"_s
               .arg(what, effect, command);
}

}  // namespace

TEST_F(CheckScopeTest, UnknownUserIsRefusedByEveryVerbWithUsers) {
    for (const setup::Verb& verb : setup::AllVerbs()) {
        const auto takesUser = [](const setup::OptionDefinition& one) { return one.name == setup::option::kUser; };
        if (std::none_of(verb.options.begin(), verb.options.end(), takesUser)) continue;
        QStringList words = verb.name.split(u' ') + QStringList{installation.Root()};
        if (verb.operands.size() > 1) words.append(u"要員名簿照会"_s);
        const ToolOutput output = RunTool(words + QStringList{u"--user"_s, u"no-such-user"_s});
        EXPECT_EQ(output.status, 2) << verb.name.toStdString();
        EXPECT_EQ(output.err.section(u'\n', 0, 0), u"suite-setup: 利用者 no-such-user はいません。"_s)
            << verb.name.toStdString();
        EXPECT_EQ(output.out, QString());
    }
}

TEST_F(CheckScopeTest, GarbledConfigurationOfAUserIsCopiedAgain) {
    WriteBytes(OwnConfiguration().Path(), QByteArray(8192, 'x'));
    ExpectFixable(AsNextStart(u"構成データベース %1 を開けません。「%1」はデータベースのファイルではありません。"_s.arg(
                                  OwnConfiguration().Path()),
                              u"起動すると「データベースが使用できません。」と出て終わります。"_s,
                              u"mv '%1' '%1.damaged'\n    rm -f -- '%1'"_s.arg(OwnConfiguration().Path())));
}

TEST_F(CheckScopeTest, MissingTemplateFileOfAUserIsCopiedWithTheWorkTables) {
    QFile::remove(OwnTemplates().Path());
    ExpectFixable(AsNextStart(u"帳票ファイル %1 がありません。"_s.arg(OwnTemplates().Path()),
                              u"印刷とプレビュができません。"_s,
                              u"rm -f -- '%1' '%2'"_s.arg(Own(u"report/repdb.accdb"_s), OwnTemplates().Path())));
}

TEST_F(CheckScopeTest, TemplateOfAUserIsReplacedByItsStandardForm) {
    OwnTemplates().Execute(u"UPDATE 帳票 SET 定義 = '用紙 x' WHERE 名称 = '要員名簿照会'"_s);
    ExpectFixable(
        u"・帳票ファイル %1 の帳票「要員名簿照会」の定義に誤りが 2 件あります。\n"
        u"  用紙がありません。\n"
        u"  1 行目: 用紙「」は数ではありません。\n"
        u"  影響: この帳票の印刷とプレビュができません。\n"
        u"  対処: 定義を直して suite-setup forms import で取り込むか、次で標準の帳票に戻してください。\n"
        u"    suite-setup repair '%2' --report '要員名簿照会' --user 'tester'\n"_s.arg(OwnTemplates().Path(),
                                                                                       installation.Root()));
}

TEST_F(CheckScopeTest, MenuRowOfAUserIsAddedAgain) {
    OwnConfiguration().Execute(u"DELETE FROM 販路推進データ管理 WHERE プログラムID = '要員台帳更新'"_s);
    ExpectFixable(
        u"・構成データベース %1 の販路推進データ管理に 要員台帳更新 の行がありません。\n"
        u"  影響: 暗証番号を使う会社では「操作権限がありません。」と出て使えません。\n"
        u"  対処: 次を実行してください。\n"
        u"    suite-setup repair '%2'\n"_s.arg(OwnConfiguration().Path(), installation.Root()));
}

TEST_F(CheckScopeTest, ClockBehindTheNewestRowIsNamedAndTheRowsCanBeDeleted) {
    AddHistory(u"20261121 102000"_s);  // less than an hour ahead
    EXPECT_EQ(Check().status, 0);
    AddHistory(u"20261121 103016"_s);
    EXPECT_EQ(Check().out,
              u"利用者 tester\n"
              u"・%1 の稼動履歴の最新の行は 2026/11/21 10:30:16 で、このコンピューターの時計（2026/11/21 09:30:15）"
              u"より進んでいます。\n"
              u"  影響: 要員台帳更新を終えても一覧に戻れないことがあります。\n"
              u"  対処: 時計を合わせてください（timedatectl）。時計が正しければ、先の日付の行を次で消してください。\n"
              u"    suite-setup repair '%2' --future-rows\n"_s.arg(OwnConfiguration().Path(), installation.Root()));
    EXPECT_EQ(RunTool({u"repair"_s, installation.Root(), u"--future-rows"_s}).out,
              u"%1: プログラム稼動履歴 の先の日付の行 2 件を消しました。\n"_s.arg(OwnConfiguration().Path()));
    EXPECT_EQ(Check().status, 0);
}

TEST_F(CheckScopeTest, ClockFarAfterTheNewestRowIsNamedAndRight) {
    AddHistory(u"20251021 093014"_s);
    EXPECT_EQ(
        Check().out,
        u"利用者 tester\n"
        u"・%1 の稼動履歴の最新の行は 2025/10/21 09:30:14 で、このコンピューターの時計（2026/11/21 09:30:15）より 13 か"
        u"月以上遅れています。\n"
        u"  影響: 時計が進んでいるなら、退社した人や履歴の日付を誤って扱います。\n"
        u"  対処: 時計を合わせてください（timedatectl）。長く使っていなかっただけなら、プログラムを一度起動してくださ"
        u"い。\n"_s.arg(OwnConfiguration().Path()));
    AddHistory(u"20261121 093000"_s);  // of a program that was started
    EXPECT_EQ(Check().status, 0);
}

TEST_F(CheckScopeTest, TwoHundredUsersAreCheckedEach) {
    for (int number = 1; number < 200; ++number) MakeUser(u"user%1"_s.arg(number, 3, 10, QChar(u'0')));
    setup::CorrectRights(installation.Root());
    ToolOutput output = Check();
    EXPECT_EQ(output.out.count(u"利用者 user"_s), 199);
    EXPECT_TRUE(output.out.endsWith(u"利用者 user199\n問題はありません。\n"_s)) << output.out.right(500).toStdString();
    SampleFile(installation.UserFolder(u"user137"_s) + u"/report/repdb.accdb"_s).Execute(u"DROP TABLE 要員名簿照会"_s);
    output = Check();
    EXPECT_EQ(output.err, u"suite-setup: 問題が 1 件あります。\n"_s);
    EXPECT_TRUE(output.out.contains(
        u"利用者 user137\n・帳票データベース %1/report/repdb.accdb に足りない表や列が 1 個あります。\n  表 要員名簿照会\n"_s
            .arg(installation.UserFolder(u"user137"_s))))
        << output.out.toStdString();
}

TEST_F(CheckScopeTest, AllUsersAreCheckedWithTheRightsOfEach) {
    MakeUser(u"nobody"_s);
    setup::CorrectRights(installation.Root());
    // The folder of the tests is closed to other users.
    const ToolOutput output = Check({u"--all-users"_s});
    EXPECT_EQ(output.status, 1);
    const QString program = installation.ProgramFolder() + u"/要員名簿照会"_s;
    EXPECT_TRUE(output.out.startsWith(u"利用者 nobody\n・プログラム %1 を読む権限がありません。\n"_s.arg(program)))
        << output.out.toStdString();
    EXPECT_TRUE(output.out.endsWith(u"利用者 tester\n"_s)) << output.out.toStdString();
    EXPECT_EQ(Check({u"--all-users"_s, u"--user"_s, u"nobody"_s}).status, 2);
}

TEST_F(CheckScopeTest, AllUsersOrNone) {
    REQUIRE_SUPERUSER();
    MakeUser(u"nobody"_s);
    SetModeOf(installation.UserFolder(u"nobody"_s), 0700);
    GiveTo(kNobody, installation.UserFolder(u"nobody"_s));
    const WithoutFileRights asAnybody;
    const ToolOutput output = Check({u"--all-users"_s});
    EXPECT_EQ(output.status, 2);
    EXPECT_EQ(output.out, QString());
    EXPECT_TRUE(output.err.startsWith(
        u"suite-setup: 利用者 nobody のファイルを使う権限がありません。root で実行してください。\n"_s))
        << output.err.toStdString();
}

TEST_F(CheckScopeTest, FoldersThatCantBeReadAreNotMissing) {
    REQUIRE_SUPERUSER();
    SetModeOf(installation.ConfFolder(), 0);
    GiveTo(kNobody, installation.ConfFolder());
    const WithoutFileRights asAnybody;
    const ToolOutput output = Check();
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(
        output.out.contains(u"・構成データベース %1/usrcnfg.accdb を調べる権限がありません。\n"
                            u"  対処: root で調べてください。\n"_s.arg(installation.ConfFolder())))
        << output.out.toStdString();
}

TEST_F(CheckScopeTest, InstallationThatCantBeReadIsNotChecked) {
    REQUIRE_SUPERUSER();
    SetModeOf(installation.Root(), 0);
    GiveTo(kNobody, installation.Root());
    const WithoutFileRights asAnybody;
    const ToolOutput output = Check();
    EXPECT_EQ(output.status, 2);
    EXPECT_EQ(output.err.section(u'\n', 0, 0), u"suite-setup: %1 を読む権限がありません。"_s.arg(installation.Root()));
}

TEST_F(CheckScopeTest, ServerThatIsDownIsNamedWithWhatToDo) {
    for (const auto& [column, value] :
         {std::pair{u"db"_s, u"S"_s}, std::pair{u"プロバイダ名"_s, u"PostgreSQL"_s},
          std::pair{u"サーバー名"_s, u"127.0.0.1:1"_s}, std::pair{u"データベース名"_s, u"suite"_s}})
        installation.SetDefinition(column, value);
    const ToolOutput output = Check();
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(output.out.startsWith(u"・一般データベース（サーバー 127.0.0.1:1）に接続できません。"_s))
        << output.out.toStdString();
    EXPECT_EQ(
        output.out.section(u'\n', 1),
        u"  影響: 起動すると「データベースが使用できません。」と出て終わります。\n"
        u"  対処: サーバーと、その間のネットワークを確かめてください。サーバーや利用者が変わったときは、次で指定し"
        u"直してください。\n"
        u"    suite-setup use-server '%1' --odbc '接続文字列'\n"
        u"利用者 tester\n"_s.arg(installation.Root()));
}

TEST_F(CheckScopeTest, PrinterThatThePrintServiceDoesNotKnowIsNamed) {
    PrintService service;
    service.AddPrinter(u"office"_s);
    OwnTemplates().Execute(
        u"CREATE TABLE 出力先 (帳票 TEXT PRIMARY KEY, 種類 TEXT NOT NULL, 名前 TEXT NOT NULL);"
        u"INSERT INTO 出力先 VALUES ('', 'プリンター', 'office'), ('要員名簿照会はがき', 'プリンター', 'cards')"_s);
    ExpectFixable(
        u"・帳票ファイル %1 の帳票「要員名簿照会はがき」の出力先のプリンター「cards」は CUPS にありません。\n"
        u"  影響: 印刷すると失敗の理由が表示され、何も出ません。\n"
        u"  対処: 出力先を suite-setup printer "
        u"で決め直してください。通常使うプリンターに戻すには、次を実行してください。\n"
        u"    suite-setup printer '%2' --to-default --report '要員名簿照会はがき'\n"_s.arg(OwnTemplates().Path(),
                                                                                           installation.Root()));
    EXPECT_EQ(OwnTemplates().Rows(u"SELECT 帳票, 名前 FROM 出力先"_s), (QList<QStringList>{{u""_s, u"office"_s}}));
}

TEST_F(CheckScopeTest, LittleSpaceIsNamed) {
    EXPECT_FALSE(setup::SpaceFinding(u"/srv"_s, 20000000));
    EXPECT_FALSE(setup::SpaceFinding(u"/srv"_s, -1));
    const std::optional<setup::Finding> finding = setup::SpaceFinding(u"/srv"_s, 19999999);
    ASSERT_TRUE(finding);
    EXPECT_EQ(finding->what, u"/srv のディスクの空きが 19 MB しかありません。"_s);
    EXPECT_EQ(finding->effect, u"出力が途中で止まり、履歴や修正した内容を書き込めません。"_s);
    EXPECT_EQ(finding->remedy, u"不要なファイルを消すか、大きなディスクに移してください。"_s);
}

TEST_F(CheckScopeTest, PathThatConnectionStringsCantContainIsNamed) {
    const QString root = installation.Root() + u";b"_s;
    ASSERT_TRUE(QFile::rename(installation.Root(), root));
    const QString out = RunTool({u"check"_s, root}).out;
    ASSERT_TRUE(QFile::rename(root, installation.Root()));
    EXPECT_TRUE(out.startsWith(
        u"・インストールのパス %1 に「;」が含まれています。\n"
        u"  影響: 起動すると「データベースが使用できません。」と出て終わります。\n"
        u"  対処: フォルダを別の名前に変え、そのフォルダに suite-setup move を実行してください。\n"_s.arg(root)))
        << out.toStdString();
    EXPECT_EQ(RunTool({u"move"_s, installation.Root()}).status, 0);
    EXPECT_EQ(Check().status, 0);
}

/// Every table of the suite reduced to one column that the suite does not know, and then dropped.
TEST_F(CheckScopeTest, OldSchemaIsReportedAndNothingElseFails) {
    const QHash<DatabaseKind, SampleFile> files{{DatabaseKind::General, installation.General()},
                                                {DatabaseKind::Configuration, installation.Configuration()},
                                                {DatabaseKind::Report, installation.Report()},
                                                {DatabaseKind::Forms, installation.Forms()}};
    for (const TableDefinition& table : SuiteTables()) {
        const SampleFile file = files[table.store];
        const QByteArray whole = ReadBytes(file.Path());
        for (const QString& sql : {u"DROP TABLE %1; CREATE TABLE %1 (旧列)"_s, u"DROP TABLE %1"_s}) {
            file.Execute(sql.arg(table.name));
            const ToolOutput output = Check();
            EXPECT_EQ(output.status, 1) << table.name.toStdString();
            EXPECT_TRUE(output.out.contains(u"  表 "_s + table.name)) << output.out.toStdString();
            EXPECT_FALSE(output.out.contains(u"調べられませんでした"_s)) << output.out.toStdString();
        }
        WriteBytes(file.Path(), whole);
    }
    EXPECT_EQ(Check().status, 0);
}
