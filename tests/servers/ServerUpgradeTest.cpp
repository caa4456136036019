// upgrade, with the general database on a server.

#include <QFile>
#include <QTemporaryDir>

#include "servers/ServerFixture.h"
#include "setup/RunTool.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;

namespace {

const QString kUpToDate = u"このインストールは新しい版になっています。\n"_s;

/// An installation on a server that is already up to date, and a folder with the programs of a newer version.
class ServerUpgrade : public OnServer {
  protected:
    ServerUpgrade() : OnServer(5) {
        WritePrograms("new");
        Upgrade();
    }

    void WritePrograms(const QByteArray& bytes) const {
        for (const QString& name : {u"要員名簿照会"_s, u"要員台帳更新"_s, u"suite-setup"_s, u"report-host"_s}) {
            WriteBytes(programs.filePath(name), bytes);
            QFile::setPermissions(programs.filePath(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        }
    }
    ToolOutput Upgrade() const { return Upgrade(server.OdbcString()); }
    ToolOutput Upgrade(const QString& odbc) const {
        ToolOutput output;
        QTextStream out(&output.out), err(&output.err);
        output.status = setup::RunSetup({u"upgrade"_s, installation.Root(), u"--odbc"_s, odbc},
                                        {out, err, programs.path(), [] { return false; }});
        return output;
    }
    QByteArray Program() const { return ReadBytes(installation.Root() + u"/prgbin/要員名簿照会"_s); }

    /// Columns and indexes of the schema, sorted.
    QList<QStringList> Schema() const {
        const QString columns =
            u"SELECT table_name, column_name, data_type, is_nullable, character_maximum_length, collation_name"
            u" FROM information_schema.columns WHERE table_schema = '%1' ORDER BY 1, 2"_s;
        if (IsPostgres())
            return server.Rows(columns.arg(u"public"_s)) +
                   server.Rows(u"SELECT indexdef FROM pg_indexes WHERE schemaname = 'public' ORDER BY 1"_s);
        return server.Rows(columns.arg(server.Name())) +
               server.Rows(
                   u"SELECT table_name, index_name, seq_in_index, column_name FROM information_schema.statistics"
                   u" WHERE table_schema = '%1' ORDER BY 1, 2, 3"_s.arg(server.Name()));
    }
    void DropIndex(const QString& table, int number) const {
        const QString name = u"\"%1_索引%2\""_s.arg(table).arg(number);
        server.Run(IsPostgres() ? u"DROP INDEX "_s + name.toLower() : u"DROP INDEX %1 ON \"%2\""_s.arg(name, table));
    }
    static QString Added(const QString& what) { return u"サーバー: %1 を追加しました。\n"_s.arg(what); }

    QTemporaryDir programs;
};

}  // namespace

TEST_F(ServerUpgrade, OfASchemaThatIsWholeChangesNothing) {
    const QList<QStringList> schema = Schema();
    const ToolOutput output = Upgrade();
    EXPECT_EQ(output.out, kUpToDate) << output.err.toStdString();
    EXPECT_EQ(output.status, 0);
    EXPECT_EQ(Schema(), schema);
}

TEST_F(ServerUpgrade, AddsTablesColumnsAndIndexesAndTouchesNoRow) {
    const QString people = u"SELECT コード, 氏名, カナ FROM M担当者 ORDER BY コード"_s;
    const QList<QStringList> schema = Schema(), before = server.Rows(people);
    server.Run(u"ALTER TABLE M担当者 DROP COLUMN 担当者メモ; DROP TABLE M役職"_s);
    DropIndex(u"T閲覧"_s, 1);
    ASSERT_NE(Schema(), schema);
    const ToolOutput output = Upgrade();
    EXPECT_EQ(output.out,
              Added(u"列 M担当者.担当者メモ"_s) + Added(u"テーブル M役職"_s) + Added(u"索引 T閲覧_索引1"_s));
    EXPECT_EQ(output.status, 0) << output.err.toStdString();
    EXPECT_EQ(Schema(), schema);
    EXPECT_EQ(server.Rows(people), before);
    EXPECT_EQ(server.Rows(u"SELECT COUNT(*) FROM M担当者 WHERE 担当者メモ IS NULL"_s), QList<QStringList>{{u"5"_s}});
    EXPECT_EQ(Upgrade().out, kUpToDate);
}

TEST_F(ServerUpgrade, AFailureOnTheWayLeavesWhatTheEngineCanTakeBackAsItWas) {
    if (!IsPostgres()) GTEST_SKIP() << "MariaDB takes no change of a table back";
    server.Run(u"ALTER TABLE M担当者 DROP COLUMN 担当者メモ"_s);
    DropIndex(u"T閲覧"_s, 1);
    server.Run(u"CREATE TABLE T閲覧_索引1 (a text)"_s);
    const QList<QStringList> schema = Schema();
    const ToolOutput failed = Upgrade();
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.out, u""_s);
    EXPECT_TRUE(failed.err.startsWith(u"suite-setup: サーバーの一般データベースを更新できません。"_s))
        << failed.err.toStdString();
    EXPECT_EQ(Schema(), schema);
    server.Run(u"DROP TABLE T閲覧_索引1"_s);
    EXPECT_EQ(Upgrade().out, Added(u"列 M担当者.担当者メモ"_s) + Added(u"索引 T閲覧_索引1"_s));
}

TEST_F(ServerUpgrade, LeavesWhatTheSiteHasAddedOfItsOwn) {
    server.Run(u"ALTER TABLE M担当者 ADD COLUMN 社内番号 VARCHAR(9); UPDATE M担当者 SET 社内番号 = 'x'"_s);
    EXPECT_EQ(Upgrade().out, kUpToDate);
    EXPECT_EQ(server.Rows(u"SELECT DISTINCT 社内番号 FROM M担当者"_s), QList<QStringList>{{u"x"_s}});
}

TEST_F(ServerUpgrade, BringsBackFunctionsWithTheirIndexesAndMakesNewOnesOutOfOlder) {
    if (!IsPostgres()) GTEST_SKIP() << "only PostgreSQL has functions of the schema";
    const QList<QStringList> schema = Schema();
    server.Run(u"DROP FUNCTION suite_order CASCADE"_s);
    const ToolOutput output = Upgrade();
    EXPECT_EQ(output.out, Added(u"関数 suite_order"_s) + Added(u"索引 M担当者_索引5"_s) +
                              Added(u"索引 M担当者_索引6"_s) + Added(u"索引 M担当者_索引7"_s));
    EXPECT_EQ(Schema(), schema);

    // A function that returns the same key for all texts, and an index built with it.
    server.Run(
        u"CREATE OR REPLACE FUNCTION suite_order(stored text) RETURNS bytea LANGUAGE plpgsql IMMUTABLE STRICT"
        u" PARALLEL SAFE AS $$ BEGIN RETURN ''::bytea; END $$; REINDEX TABLE M担当者"_s);
    EXPECT_EQ(Upgrade().out, u"サーバー: 関数 suite_order を新しくしました。\n"_s);
    const QString sorted = u"SELECT カナ FROM M担当者 ORDER BY suite_order(カナ) NULLS FIRST"_s;
    server.Run(u"SET enable_indexscan = off"_s);
    const QList<QStringList> bySorting = server.Rows(sorted);
    server.Run(u"SET enable_indexscan = on; SET enable_seqscan = off; SET enable_sort = off"_s);
    EXPECT_EQ(server.Rows(sorted), bySorting);
    EXPECT_TRUE(server.Rows(u"EXPLAIN "_s + sorted)[0][0].startsWith(u"Index Scan"_s));
}

TEST_F(ServerUpgrade, ADatabaseWithoutTheSuitesTablesIsRefusedAndStaysEmpty) {
    const ServerDatabase other;
    WritePrograms("newest");
    const ToolOutput output = Upgrade(other.OdbcString());
    EXPECT_EQ(output.status, 2);
    EXPECT_EQ(
        output.err.section(u'\n', 0, 0),
        u"suite-setup: --odbc のデータベースに一般データベースの表がありません。server-init で作ってください。"_s);
    EXPECT_EQ(Program(), "new");
}

TEST_F(ServerUpgrade, AnotherDatabaseThanThatOfTheProgramsIsToldAndTheProgramsStayAsTheyAre) {
    const ServerDatabase other;
    ASSERT_EQ(RunServerTool({u"server-init"_s, u"--odbc"_s, other.OdbcString()}).status, 0);
    server.Run(u"ALTER TABLE M担当者 DROP COLUMN 担当者メモ"_s);
    WritePrograms("newest");
    const ToolOutput output = Upgrade(other.OdbcString());
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.err,
              u"suite-setup: 定義のデータベースに足りないものがあります。表 M担当者 の列 担当者メモ。"
              u"--odbc が同じデータベースを指しているか確かめてください。\n"_s);
    EXPECT_EQ(Program(), "new");
}

TEST_F(ServerUpgrade, ProgramsThatMayNotReadANewTableWaitForTheRight) {
    server.Run(u"DROP TABLE M役職"_s);
    const ReadingUser user(server);
    Define(u"ユーザーID"_s, user.Name());
    Define(u"パスワード"_s, ReadingUser::Password());
    WritePrograms("newest");
    const ToolOutput waiting = Upgrade();
    EXPECT_EQ(waiting.status, 1);
    EXPECT_EQ(waiting.out, Added(u"テーブル M役職"_s));
    EXPECT_TRUE(waiting.err.startsWith(u"suite-setup: 定義の利用者では一般データベースを使えません。"_s))
        << waiting.err.toStdString();
    EXPECT_TRUE(waiting.err.contains(u"m役職"_s, Qt::CaseInsensitive)) << waiting.err.toStdString();
    EXPECT_EQ(Program(), "new");
    user.Grant();
    const ToolOutput done = Upgrade();
    EXPECT_EQ(done.status, 0) << done.err.toStdString();
    EXPECT_EQ(Program(), "newest");
}

TEST_F(ServerUpgrade, ByAnAccountThatMayOnlyReadChangesNothing) {
    server.Run(u"ALTER TABLE M担当者 DROP COLUMN 担当者メモ"_s);
    DropIndex(u"T閲覧"_s, 1);
    const QList<QStringList> schema = Schema();
    const ReadingUser user(server);
    const ToolOutput output = Upgrade(server.OdbcString()
                                          .replace(u"UID=suite"_s, u"UID="_s + user.Name())
                                          .replace(ServerDatabase::Password(), ReadingUser::Password()));
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(output.err.startsWith(u"suite-setup: サーバーの一般データベースを更新できません。"_s))
        << output.err.toStdString();
    EXPECT_EQ(Schema(), schema);
}
