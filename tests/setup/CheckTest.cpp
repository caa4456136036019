// Commands check and move.

#include "setup/CheckFixture.h"

TEST_F(SuiteSetupCheck, FindsNothingInAWholeInstallation) {
    const ToolOutput output = Check();
    EXPECT_EQ(output.status, 0) << output.out.toStdString() << output.err.toStdString();
    EXPECT_EQ(output.out, u"利用者 tester\n問題はありません。\n"_s);
}

TEST_F(SuiteSetupCheck, ReportsAMissingTemplateFile) {
    QFile::remove(Report() + u"/repfrmdb.accdb"_s);
    ExpectFault(u"帳票ファイル %1/repfrmdb.accdb がありません。\n"_s.arg(Report()));
}

TEST_F(SuiteSetupCheck, ReportsAMissingProgram) {
    const QString program = installation.ProgramFolder() + u"/要員台帳更新"_s;
    QFile::remove(program);
    ExpectFault(u"プログラム %1 がありません。\n"_s.arg(program));
}

TEST_F(SuiteSetupCheck, ReportsAProgramThatCantBeStarted) {
    const QString program = installation.ProgramFolder() + u"/要員名簿照会"_s;
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    ExpectFault(u"プログラム %1 を起動する権限がありません。\n"_s.arg(program));
}

TEST_F(SuiteSetupCheck, ReportsABrokenConfiguration) {
    const QString file = installation.UserFolder(u"tester"_s) + u"/conf/usrcnfg.accdb"_s;
    WriteBytes(file, "");
    ExpectFault(u"構成データベース %1 を開けません。"_s.arg(file));
}

TEST_F(SuiteSetupCheck, ReportsATableThatIsLinkedElsewhere) {
    const SampleFile forms(Report() + u"/repfrmdb.accdb"_s);
    forms.Execute(
        u"UPDATE リンクテーブル SET 接続 = ';DATABASE=/other/repdb.accdb'"
        u" WHERE rowid = (SELECT MIN(rowid) FROM リンクテーブル)"_s);
    const QString table = forms.Value(u"SELECT 名称 FROM リンクテーブル ORDER BY rowid"_s);
    ExpectFault(
        u"帳票ファイル %1 のテーブル %2 が %3/repdb.accdb ではなく /other/repdb.accdb にリンクしています。\n"_s.arg(
            forms.Path(), table, Report()));
}

TEST_F(SuiteSetupCheck, ReportsAFolderThatIsNotTrusted) {
    registry.Give(LocationsOf(u"16.0"_s) + u"\\Location0"_s, u"Path"_s, u"/elsewhere/"_s);
    ExpectFault(
        u"帳票ホストがフォルダ %1 を信頼していません。\n"
        u"  影響: 印刷やプレビュのたびに、帳票ファイルを開いてよいか尋ねられます。\n"
        u"  対処: 次をこの利用者が実行してください。\n"
        u"    suite-setup registry set 'HKCU\\%2\\Location1' Path '%1/'\n"_s.arg(Report(), LocationsOf(u"16.0"_s)));
}

TEST_F(SuiteSetupCheck, ItsAdviceOnTrustHelpsAndOverwritesNoLocation) {
    const QString locations = LocationsOf(u"16.0"_s);
    registry.Give(locations + u"\\Location0"_s, u"Path"_s, u"/elsewhere/"_s);
    const QStringList words = Check().out.section(u"    suite-setup "_s, 1, 1).section(u'\n', 0, 0).split(u' ');
    ASSERT_EQ(words.size(), 6) << "Trusted Locations has a blank";
    const QString key = words[2] + u' ' + words[3];
    EXPECT_EQ(RunTool({words[0], words[1], key.chopped(1).sliced(1), words[4], words[5].chopped(1).sliced(1)}).status,
              0);
    EXPECT_EQ(Check().status, 0);
    EXPECT_EQ(registry.Text(locations + u"\\Location0"_s, u"Path"_s), u"/elsewhere/"_s);
}

TEST_F(SuiteSetupCheck, ReportsABrokenRegistry) {
    WriteBytes(registry.UserFile(), "[Software\n");
    ExpectFault(u"レジストリ %1 が壊れています。\n"_s.arg(registry.UserFile()));
}

TEST_F(SuiteSetupCheck, ReportsARegistryThatCantBeRead) {
    QFile::setPermissions(registry.UserFile(), {});
    const WithoutFileRights asAnybody;
    ExpectFault(u"レジストリ %1 を読めません。\n"_s.arg(registry.UserFile()));
}

TEST_F(SuiteSetupCheck, ReportsAMissingHost) {
    registry.GiveHost(u"/nowhere/OFFICE16/"_s);
    ExpectFault(u"登録されている帳票ホスト /nowhere/OFFICE16/MSACCESS.EXE がありません。\n"_s);
}

TEST_F(SuiteSetupCheck, ReportsAHostThatIsNotRegistered) {
    UseStandInRegistry();
    ExpectFault(u"帳票ホストがこのコンピューターに登録されていません。\n"_s);
}

TEST_F(SuiteSetupCheck, ReportsAHostWithoutAVersionWord) {
    const QString folder = installation.Root() + u"/host/"_s;
    ASSERT_TRUE(QFile::copy(folder + u"OFFICE16/MSACCESS.EXE"_s, folder + u"MSACCESS.EXE"_s));
    registry.GiveHost(folder);
    ExpectFault(u"帳票ホストのフォルダ %1 に版を表す語（OFFICE16 など）がありません。\n"_s.arg(folder));
}

TEST_F(SuiteSetupCheck, UserWhoHasNotStartedAProgramYetHasNoFault) {
    const ToolOutput output = Check({u"--user"_s, u"nobody"_s});
    EXPECT_TRUE(
        output.out.contains(u"利用者 nobody\nこの利用者のファイルはまだありません。最初の起動で作られます。\n"_s))
        << output.out.toStdString();
    EXPECT_FALSE(output.out.contains(u"・この利用者"_s));
}

TEST_F(SuiteSetupCheck, PrivateCopiesOfTheOtherGenerationDontCount) {
    const QString own = installation.UserFolder(u"tester"_s) + u"/conf/usrcnfg"_s;
    ASSERT_TRUE(QFile::rename(own + u".accdb"_s, own + u".mdb"_s));
    ExpectFault(u"構成データベース %1.accdb がありません。\n"_s.arg(own));
}

TEST_F(SuiteSetupCheck, SharedFilesAreCheckedWithoutPrivateCopiesAndTrust) {
    QDir(installation.UserFolder(u"tester"_s)).removeRecursively();
    for (const QString& kind : {u"0"_s, QString()}) {
        installation.SetEnvironment(u"インストール区分"_s, kind);
        const ToolOutput output = Check();
        EXPECT_EQ(output.status, 0);
        EXPECT_EQ(output.out, u"問題はありません。\n"_s);
    }
    QFile::remove(installation.Forms().Path());
    const ToolOutput output = Check();
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(output.out.startsWith(u"・帳票ファイル %1 がありません。\n"_s.arg(installation.Forms().Path())));
    EXPECT_EQ(output.out.count(u"・"_s), 1);
}

TEST_F(SuiteSetupCheck, ReportsAnInstallKindThatNoProgramKnows) {
    installation.SetEnvironment(u"インストール区分"_s, u"2"_s);
    const ToolOutput output = Check();
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(
        output.out,
        u"・%1 のインストール区分が 0 でも 1 でもありません。\n"
        u"  影響: 起動すると「データベースが使用できません。」と出て終わります。\n"
        u"  対処: 構成と帳票を全員で共有するなら 0、利用者ごとに複写を持つなら 1 を指定して、次を実行してください。\n"
        u"    suite-setup repair '%2' --install-kind 0\n"_s.arg(installation.Configuration().Path(),
                                                                installation.Root()));
}

TEST_F(SuiteSetupCheck, ReportsWhatAnotherUserMayNotRead) {
    const SharedSuite suite(1);
    registry.GiveHost(suite.Root() + u"/host/OFFICE16/"_s);
    const auto check = [&] { return RunTool({u"check"_s, suite.Root(), u"--user"_s, u"nobody"_s}).out; };
    const QString notYet = u"利用者 nobody\nこの利用者のファイルはまだありません。最初の起動で作られます。\n"_s;
    EXPECT_EQ(check(), notYet + u"問題はありません。\n"_s);
    const QString key = suite.Root() + u"/conf/pin.key"_s, users = suite.Root() + u"/users"_s;
    const unsigned group = platform::RightsOf(key)->group;
    ASSERT_TRUE(platform::SetRights(key, group, 0600) && platform::SetRights(users, group, 03750));
    EXPECT_EQ(
        check(),
        GroupFault(suite, u"暗証番号の鍵ファイル %1 を読む権限がありません。"_s.arg(key),
                   u"暗証番号を入力しても「暗証番号が違います。」と出ます。"_s) +
            RightsFault(suite, {{key, u"0600 %1 → 0640 %1"_s}, {users, u"3750 %1 → 3770 %1"_s}}) + notYet +
            GroupFault(suite,
                       u"利用者 nobody にフォルダ %1 に書き込む権限がないので、ファイルを作れません。"_s.arg(users),
                       u"起動すると「データベースが使用できません。」と出て終わります。"_s));
}

TEST_F(SuiteSetupCheck, ReportsARegistryThatAnotherUserMayNotRead) {
    WriteBytes(platform::MachineRegistryFile(), "");  // in the folder of the tests, which other users can't enter
    const QString out = Check({u"--user"_s, u"nobody"_s}).out;
    QFile::remove(platform::MachineRegistryFile());
    EXPECT_TRUE(out.contains(u"・レジストリ %1 を読む権限がありません。\n"_s.arg(platform::MachineRegistryFile())))
        << out.toStdString();
}

TEST_F(SuiteSetupCheck, ReportsWhichSharedFilesAnotherUserMayNotWrite) {
    const SharedSuite suite(1);
    registry.GiveHost(suite.Root() + u"/host/OFFICE16/"_s);
    SampleFile(suite.Root() + u"/conf/usrcnfg.accdb"_s).Execute(u"UPDATE 動作環境定義 SET インストール区分 = '0'"_s);
    const QString file = suite.Root() + u"/conf/usrcnfg.accdb"_s, folder = suite.Root() + u"/report"_s;
    const unsigned group = platform::RightsOf(file)->group;
    ASSERT_TRUE(platform::SetRights(file, group, 0640) && platform::SetRights(folder, group, 02750) &&
                platform::SetRights(suite.General().Path(), group, 0640));
    EXPECT_EQ(RunTool({u"check"_s, suite.Root(), u"--user"_s, u"nobody"_s}).out,
              RightsFault(suite, {{suite.General().Path(), u"0640 %1 → 0660 %1"_s},
                                  {file, u"0640 %1 → 0660 %1"_s},
                                  {folder, u"2750 %1 → 2770 %1"_s}}) +
                  GroupFault(suite, u"構成データベース %1 に書き込む権限がありません。"_s.arg(file),
                             u"履歴が残らず、要員台帳更新との行き来ができません。"_s) +
                  GroupFault(suite, u"一般データベース %1 に書き込む権限がありません。"_s.arg(suite.General().Path()),
                             u"要員台帳更新で保存できません。"_s) +
                  GroupFault(suite, u"帳票データベースのフォルダ %1 に書き込む権限がありません。"_s.arg(folder),
                             u"印刷やテキスト出力をすると「帳票が使用できません。」と出ます。"_s));
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

TEST_F(SuiteSetupCheck, MoveReportsAGeneralDatabaseElsewhereAndFails) {
    installation.SetDefinition(u"データソース名"_s, u"/elsewhere/staff.accdb"_s);
    const ToolOutput output = RunTool({u"move"_s, installation.Root()});
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(output.err.contains(u"一般データベース /elsewhere/staff.accdb は"_s)) << output.err.toStdString();
    EXPECT_EQ(installation.Configuration().Value(u"SELECT データソース名 FROM データベース定義"_s),
              u"/elsewhere/staff.accdb"_s);
}

TEST_F(SuiteSetupCheck, MoveLeavesADatabaseOnAServerAsItIs) {
    installation.SetDefinition(u"db"_s, u"S"_s);
    installation.SetDefinition(u"データソース名"_s, u"staffserver"_s);
    QDir(installation.UserFolder(u"tester"_s)).removeRecursively();
    const ToolOutput output = RunTool({u"move"_s, installation.Root()});
    EXPECT_EQ(output.status, 0);
    EXPECT_EQ(output.out,
              u"%1: サーバーのデータベース staffserver はそのままです。\n"
              u"変更するところはありませんでした。\n"_s.arg(installation.Configuration().Path()));
    EXPECT_EQ(installation.Configuration().Value(u"SELECT データソース名 FROM データベース定義"_s), u"staffserver"_s);
}

TEST_F(SuiteSetupCheck, MoveGoesOnAfterAFileThatCantBeChangedAndFails) {
    const QString broken = installation.UserFolder(u"a"_s) + u"/report"_s;
    ASSERT_TRUE(QDir().mkpath(broken));
    WriteBytes(broken + u"/repfrmdb.accdb"_s, "no database");
    SampleFile(Report() + u"/repfrmdb.accdb"_s).Execute(u"UPDATE リンクテーブル SET 接続 = ';DATABASE=/original'"_s);
    const ToolOutput output = RunTool({u"move"_s, installation.Root()});
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(output.err.startsWith(u"suite-setup: %1/repfrmdb.accdb を変更できません。"_s.arg(broken)))
        << output.err.toStdString();
    EXPECT_EQ(SampleFile(Report() + u"/repfrmdb.accdb"_s).Rows(u"SELECT DISTINCT 接続 FROM リンクテーブル"_s),
              QList<QStringList>{{u";DATABASE="_s + Report() + u"/repdb.accdb"_s}});
}

/// Blanks around a data source in a connection string are trimmed; full-width blanks are part of the name.
class DataSourceBlanks : public SuiteSetupCheck {
  protected:
    /// Renames the general database so that its name ends in a full-width blank.
    QString FullWidthName() const {
        const QString file = installation.General().Path() + u'　';
        EXPECT_TRUE(QFile::rename(installation.General().Path(), file));
        return file;
    }
};

TEST_F(DataSourceBlanks, AreIgnoredAsInThePrograms) {
    installation.SetDefinition(u"データソース名"_s, u"  "_s + installation.General().Path() + u"  "_s);
    EXPECT_EQ(Check().out, u"利用者 tester\n問題はありません。\n"_s);
    EXPECT_EQ(RunTool({u"seal-pins"_s, installation.Root()}).status, 0);
    const ToolOutput moved = RunTool({u"move"_s, installation.Root()});
    EXPECT_EQ(moved.status, 0) << moved.err.toStdString();
}

TEST_F(DataSourceBlanks, OfFullWidthBelongToTheName) {
    installation.SetDefinition(u"データソース名"_s, FullWidthName());
    EXPECT_EQ(Check().out, u"利用者 tester\n問題はありません。\n"_s);
    const ToolOutput sealed = RunTool({u"seal-pins"_s, installation.Root()});
    EXPECT_EQ(sealed.status, 0) << sealed.err.toStdString();
}
