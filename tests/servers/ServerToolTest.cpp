// server-init and use-server.

#include "servers/ServerFixture.h"
#include "setup/RunTool.h"
#include "setup/schema/GeneralDatabase.h"

using namespace Qt::StringLiterals;

namespace {

class ServerTool : public ::testing::Test {
  protected:
    ToolOutput Init(const QStringList& more = {}) const {
        return RunServerTool(QStringList{u"server-init"_s, u"--odbc"_s, server.OdbcString()} + more);
    }
    QString Count(const QString& table) const { return server.Rows(u"SELECT COUNT(*) FROM "_s + table)[0][0]; }
    QStringList Tables() const {
        const bool postgres = ServerDatabase::Engine() == u"PostgreSQL"_s;
        QStringList names;
        for (const QStringList& row : server.Rows(
                 u"SELECT table_name FROM information_schema.tables WHERE table_schema = '%1' ORDER BY table_name"_s
                     .arg(postgres ? u"public"_s : server.Name())))
            names.append(row.first());
        return names;
    }

    SampleInstallation installation{{.staff = 250}};
    ServerDatabase server;
};

}  // namespace

TEST_F(ServerTool, AnEmptySchemaHasAllTablesAndNoRows) {
    const ToolOutput made = Init();
    EXPECT_EQ(made.status, 0) << made.err.toStdString();
    EXPECT_EQ(made.out, ServerDatabase::Engine() + u" に表 14 個を作りました。\n"_s);
    EXPECT_EQ(Tables().size(), 14);
    EXPECT_EQ(Count(u"M担当者"_s), u"0"_s);
}

TEST_F(ServerTool, AnInstallationsRowsAreCopiedAndCountedTableByTable) {
    installation.General().Execute(
        u"UPDATE M担当者 SET 担当者メモ = 'it''s \\ %_[a]' || char(10) || '𠮷' WHERE コード = '00001'"_s);
    const ToolOutput made = Init({u"--from"_s, installation.Root()});
    EXPECT_EQ(made.status, 0) << made.err.toStdString();
    EXPECT_TRUE(made.out.startsWith(u"M担当者: 250 行\nMユーザ: 1 行\n"_s)) << made.out.toStdString();
    EXPECT_TRUE(made.out.endsWith(ServerDatabase::Engine() + u" に表 14 個を作りました。\n"_s));
    for (const QString& table : Tables()) {
        const QString name = table.toUpper();
        EXPECT_EQ(Count(table), installation.General().Value(u"SELECT COUNT(*) FROM "_s + table)) << name.toStdString();
    }
    const QString memo = u"SELECT 担当者メモ FROM M担当者 WHERE コード = '00001'"_s;
    EXPECT_EQ(server.Rows(memo)[0][0], u"it's \\ %_[a]\n𠮷"_s);
    const QString empty = u"SELECT コード FROM M担当者 WHERE 退社日付 = '' ORDER BY コード"_s;
    EXPECT_EQ(server.Rows(empty), installation.General().Rows(empty));
}

TEST_F(ServerTool, ColumnsThatTheSiteHasAddedGoAlong) {
    installation.General().Execute(u"ALTER TABLE M部門 ADD COLUMN 略称X TEXT; UPDATE M部門 SET 略称X = '略'"_s);
    EXPECT_EQ(Init({u"--from"_s, installation.Root()}).status, 0);
    EXPECT_EQ(server.Rows(u"SELECT 略称X FROM M部門 WHERE コード = '010'"_s), QList<QStringList>{{u"略"_s}});
}

TEST_F(ServerTool, TablesThatAreThereAreNotTouched) {
    EXPECT_EQ(Init({u"--from"_s, installation.Root()}).status, 0);
    const ToolOutput again = Init({u"--from"_s, installation.Root()});
    EXPECT_EQ(again.status, 2);
    EXPECT_TRUE(again.err.startsWith(
        u"suite-setup: サーバーに表 M担当者 が既にあります。空のデータベースを指定してください。\n"_s));
    EXPECT_EQ(Count(u"M担当者"_s), u"250"_s);
}

TEST_F(ServerTool, AFailureOnTheWayTakesTheTablesAwayAgain) {
    installation.General().Execute(u"DROP TABLE M役職"_s);
    const ToolOutput failed = Init({u"--from"_s, installation.Root()});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.err, u"suite-setup: 複写元の一般データベースに表 M役職 がありません。\n"_s);
    EXPECT_EQ(Tables(), QStringList());
}

TEST_F(ServerTool, UseServerWritesTheRowAndNothingElse) {
    ASSERT_EQ(Init().status, 0);
    installation.SetDefinition(u"接続文字列"_s, u"stays"_s);
    const ToolOutput used = RunServerTool({u"use-server"_s, installation.Root(), u"--odbc"_s, server.OdbcString()});
    EXPECT_EQ(used.status, 0) << used.err.toStdString();
    EXPECT_EQ(used.out, installation.Root() + u" の一般データベースを "_s + ServerDatabase::Engine() +
                            u" のものにしました。動いているプログラムは起動し直してください。\n"_s);
    const GeneralDatabaseDefinition row = setup::ReadDefinition(installation.Configuration().Path());
    EXPECT_EQ(row.db, u"S"_s);
    EXPECT_EQ(row.プロバイダ名, ServerDatabase::Provider());
    EXPECT_EQ(row.サーバー名, ServerDatabase::Server());
    EXPECT_EQ(row.データベース名, server.Name());
    EXPECT_EQ(row.ユーザーID, ServerDatabase::User());
    EXPECT_EQ(row.パスワード, ServerDatabase::Password());
    EXPECT_EQ(installation.Configuration().Value(u"SELECT 接続文字列 FROM データベース定義"_s), u"stays"_s);
}

TEST_F(ServerTool, UseServerChangesNothingWhereTablesAreMissing) {
    const ToolOutput used = RunServerTool({u"use-server"_s, installation.Root(), u"--odbc"_s, server.OdbcString()});
    EXPECT_EQ(used.status, 1);
    EXPECT_TRUE(used.err.contains(u"表 M担当者、表 Mユーザ、"_s)) << used.err.toStdString();
    EXPECT_EQ(setup::ReadDefinition(installation.Configuration().Path()).db, u"A"_s);
}

TEST_F(ServerTool, CheckLooksAtTheServerToo) {
    ASSERT_EQ(Init().status, 0);
    RunServerTool({u"use-server"_s, installation.Root(), u"--odbc"_s, server.OdbcString()});
    server.Run(u"DROP TABLE T閲覧"_s);
    const ToolOutput checked = RunServerTool({u"check"_s, installation.Root()});
    EXPECT_TRUE(checked.out.contains(u"に足りない表や列が 1 個あります。\n  表 T閲覧\n"_s))
        << checked.out.toStdString();
    installation.SetDefinition(u"パスワード"_s, u"falsch"_s);
    EXPECT_TRUE(RunServerTool({u"check"_s, installation.Root()}).out.contains(u"・一般データベース"_s));
}

namespace {

/// Findings of check about the rows of the general database, and the staff that a search finds.
class ServerRows : public OnServer {
  protected:
    QString Findings() const {
        QStringList lines;
        for (const QString& line : RunServerTool({u"check"_s, installation.Root()}).out.split(u'\n'))
            if (line.startsWith(u"・一般データベース"_s) || line.contains(u"--odbc"_s)) lines.append(line);
        return lines.join(u'\n');
    }
};

}  // namespace

TEST_F(ServerRows, AreCheckedAndRepairedAsInAFile) {
    ASSERT_TRUE(OpenGeneral());
    const qsizetype all = Search().size();
    ASSERT_EQ(Findings(), QString());
    server.Run(
        u"UPDATE M担当者 SET 社員区分 = '7' WHERE コード < '00003'; UPDATE M担当者 SET 性別区分 = NULL WHERE コード = "
        u"'00004';"
        u"DELETE FROM Mユーザ; DELETE FROM K年号区分; UPDATE M担当者 SET 住所B = NULL WHERE コード = '00005'"_s);
    EXPECT_LT(Search().size(), all);
    const QString found = Findings();
    for (const QString& text :
         {u"の Mユーザ に会社の行 0001 がありません。"_s, u"の K年号区分 に行がありません。"_s,
          u"K社員区分 にない社員区分「7」の要員が 2 名います。"_s,
          u"K性別区分 にない空の性別区分の要員が 1 名います。"_s, u"住所A があり住所B が Null の要員が 1 名います。"_s})
        EXPECT_TRUE(found.contains(text)) << found.toStdString();
    EXPECT_TRUE(found.contains(
        u"    suite-setup repair '%1' --odbc '所有者の接続文字列' --reset-classes"_s.arg(installation.Root())))
        << found.toStdString();
    const ToolOutput repaired =
        RunServerTool({u"repair"_s, installation.Root(), u"--odbc"_s, server.OdbcString(), u"--reset-classes"_s});
    EXPECT_EQ(repaired.status, 0) << repaired.err.toStdString();
    EXPECT_EQ(Findings(), QString()) << repaired.out.toStdString();
    EXPECT_EQ(Search().size(), all);
}

namespace {

/// A server that compares text differently from what the programs require, and the message and remedy for it.
class ServerTextFaults : public OnServer {
  protected:
    void SetUp() override {
        if (IsPostgres()) {
            server.Run(u"DROP FUNCTION suite_order CASCADE"_s);
            fault = u"関数 suite_order がありません"_s;
            remedy = u"suite-setup server-init --odbc 所有者の接続文字列 --add-missing"_s;
        } else {
            remedy = u"ALTER TABLE `M担当者` CONVERT TO CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"_s;
            server.Run(u"ALTER TABLE \"M担当者\" CONVERT TO CHARACTER SET utf8mb4 COLLATE utf8mb4_general_ci"_s);
            fault = u"列 M担当者.コード の照合順序 utf8mb4_general_ci は異なる文字を同じとみなします"_s;
        }
    }
    void Repair() const {
        if (!IsPostgres()) return server.Run(QString(remedy).replace(u'`', u'"'));
        const ToolOutput added =
            RunServerTool({u"server-init"_s, u"--odbc"_s, server.OdbcString(), u"--add-missing"_s});
        EXPECT_EQ(added.status, 0) << added.err.toStdString();
        EXPECT_TRUE(added.out.startsWith(u"関数 suite_order を追加しました。\n"_s)) << added.out.toStdString();
    }
    ToolOutput UseServer() const {
        return RunServerTool({u"use-server"_s, installation.Root(), u"--odbc"_s, server.OdbcString()});
    }
    QStringList Errors() const { return History().filter(u"エラー "_s); }

    QString fault, remedy;
};

}  // namespace

TEST_F(ServerTextFaults, UseServerRefusesTheServerAndNamesTheCommand) {
    installation.SetDefinition(u"db"_s, u"A"_s);
    const ToolOutput used = UseServer();
    EXPECT_EQ(used.status, 1);
    EXPECT_TRUE(used.err.startsWith(
        u"suite-setup: サーバーでは検索が正しく動きません。%1。次を実行してください。\n    %2\n"_s.arg(fault, remedy)))
        << used.err.toStdString();
    EXPECT_EQ(installation.Configuration().Value(u"SELECT db FROM データベース定義"_s), u"A"_s);
    Repair();
    EXPECT_EQ(UseServer().status, 0);
}

TEST_F(ServerTextFaults, CheckNamesThemWithTheCommand) {
    const QString line =
        u"・一般データベースの%1。\n"
        u"  影響: 名前やコードで検索すると、出るはずの要員が出ないか、別の要員が出ます。\n"
        u"  対処: 次を実行してください。\n    %2\n"_s.arg(fault, remedy);
    const ToolOutput checked = RunServerTool({u"check"_s, installation.Root()});
    EXPECT_EQ(checked.status, 1);
    EXPECT_TRUE(checked.out.contains(line)) << checked.out.toStdString();
    EXPECT_EQ(checked.out.count(remedy), 1) << "once, whatever number of columns it corrects";
    Repair();
    EXPECT_FALSE(RunServerTool({u"check"_s, installation.Root()}).out.contains(u"一般データベース"_s));
}

TEST_F(ServerTextFaults, TheStartRecordsThemAndGoesOn) {
    ASSERT_TRUE(OpenGeneral());
    EXPECT_TRUE(Errors().contains(u"エラー 一般データベースの%1。次を実行すると直ります。%2"_s.arg(fault, remedy)))
        << History().join(u'\n').toStdString();
    const qsizetype rows = History().size();
    Repair();
    ASSERT_TRUE(OpenGeneral());
    EXPECT_EQ(History().size(), rows);
}

TEST_F(ServerTextFaults, OfAFunctionThatTheAccountMayNotUseAndOfACollationAreNamedToo) {
    if (!IsPostgres()) GTEST_SKIP() << "only PostgreSQL has functions of the schema and such collations";
    Repair();
    server.Run(
        u"REVOKE EXECUTE ON FUNCTION suite_fold(text) FROM PUBLIC;"
        u"CREATE COLLATION blind (provider = icu, locale = 'und-u-ks-level2', deterministic = false);"
        u"ALTER TABLE M部門 ALTER COLUMN 名称 TYPE text COLLATE blind"_s);
    const ReadingUser user(server);
    Define(u"ユーザーID"_s, user.Name());
    Define(u"パスワード"_s, ReadingUser::Password());
    const QString out = RunServerTool({u"check"_s, installation.Root()}).out;
    EXPECT_TRUE(out.contains(u"・一般データベースの関数 suite_fold を使う権限がありません。\n"_s) &&
                out.contains(u"    GRANT EXECUTE ON FUNCTION suite_fold(text) TO PUBLIC\n"_s))
        << out.toStdString();
    EXPECT_TRUE(
        out.contains(u"・一般データベースの列 M部門.名称 の照合順序 blind は異なる文字を同じとみなします。\n"_s) &&
        out.contains(u"    ALTER TABLE \"m部門\" ALTER COLUMN \"名称\" TYPE text COLLATE \"C\"\n"_s))
        << out.toStdString();
    server.Run(u"ALTER TABLE \"m部門\" ALTER COLUMN \"名称\" TYPE text COLLATE \"C\""_s);
    EXPECT_FALSE(RunServerTool({u"check"_s, installation.Root()}).out.contains(u"名称"_s));
}

TEST_F(ServerTool, AddMissingTakesNoEmptyDatabaseAndNoSource) {
    const ToolOutput empty = Init({u"--add-missing"_s});
    EXPECT_EQ(empty.status, 2);
    EXPECT_EQ(Tables(), QStringList());
    EXPECT_EQ(Init({u"--add-missing"_s, u"--from"_s, installation.Root()}).status, 2);
    ASSERT_EQ(Init().status, 0);
    EXPECT_EQ(Init({u"--add-missing"_s}).out, u"サーバーの一般データベースに足りないものはありません。\n"_s);
}
