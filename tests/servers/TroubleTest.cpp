// Failures between a program and its server, as the user and the run history see them.

#include <QElapsedTimer>
#include <QTcpServer>
#include <atomic>
#include <clocale>
#include <thread>

#include "access/CompanyInformation.h"
#include "access/StartUp.h"
#include "data/Recordsets.h"
#include "database/DatabaseError.h"
#include "inquiry/StaffQuery.h"
#include "platform/EndRequest.h"
#include "platform/RuntimeError.h"
#include "registration/StaffStore.h"
#include "servers/ServerFixture.h"
#include "setup/RunTool.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kAtOnce = 10'000;  // milliseconds on a busy machine; much less than any timeout of the suite

class Trouble : public OnServer {
  protected:
    /// Asserts that the opening fails, and that the last history row reports it and contains `words`.
    void ExpectFailedOpening(const QString& words) {
        EXPECT_FALSE(OpenGeneral());
        EXPECT_TRUE(LastHistory().startsWith(u"エラー DB_OPEN ERROR-"_s)) << LastHistory().toStdString();
        EXPECT_TRUE(LastHistory().contains(words, Qt::CaseInsensitive)) << LastHistory().toStdString();
        EXPECT_TRUE(services.dialogs.shown.isEmpty());
    }
    /// Asserts that each of `count` searches leaves an empty list and adds one history row with its statement.
    void ExpectFailedSearches(int count) {
        for (int i = 0; i < count; ++i) {
            const qsizetype rows = History().size();
            EXPECT_EQ(Search(), QStringList());
            ASSERT_EQ(History().size(), rows + 1);
            EXPECT_TRUE(LastHistory().startsWith(u"エラー "_s));
            EXPECT_TRUE(LastHistory().endsWith(BuildStaffStatement().replace(u"'"_s, u"''"_s)));
        }
        EXPECT_TRUE(services.dialogs.shown.isEmpty());
    }
    void Connect(database::Connection& connection, const QString& text) const {
        connection.CursorLocation = database::CursorLocation::Client;
        connection.Open(text);
    }
};

long NumberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const database::DatabaseError& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace

TEST_F(Trouble, ARequestToEndTheProgramCancelsAStatementThatTakesHours) {
    ASSERT_TRUE(OpenGeneral());
    int ends = 0;
    platform::SetEndHandler([&ends] { ++ends; });
    const QString running = IsPostgres() ? u"SELECT query FROM pg_stat_activity WHERE state = 'active'"_s
                                         : u"SELECT info FROM information_schema.processlist"_s;
    std::atomic<qint64> asked = -1;
    QElapsedTimer timer;
    timer.start();
    std::thread system([&] {
        const auto runs = [&] {
            for (const QStringList& row : server.Rows(running))
                if (row.first().contains(u"x7.コード"_s) && !row.first().contains(u"pg_stat_activity"_s)) return true;
            return false;
        };
        while (!runs() && timer.elapsed() < 60'000) std::this_thread::yield();
        asked = timer.elapsed();
        platform::RequestEnd();
    });
    QStringList tables;
    for (int i = 1; i <= 7; ++i) tables << u"M担当者 x%1"_s.arg(i);
    database::Recordset rows;
    EXPECT_FALSE(OpenRecordset(rows, u"SELECT COUNT(x7.コード) AS n FROM "_s + tables.join(u", "_s)));
    system.join();
    platform::SetEndHandler({});
    EXPECT_EQ(ends, 1);
    EXPECT_LT(timer.elapsed() - asked, kAtOnce);
    EXPECT_FALSE(platform::EndRequested());
}

TEST_F(Trouble, AWrongPasswordEndsTheStartWithTheServersWordsInTheHistory) {
    Define(u"パスワード"_s, u"falsch"_s);
    ExpectFailedOpening(IsPostgres() ? u"password authentication failed"_s : u"Access denied"_s);
}

TEST_F(Trouble, AServerThatIsDownAtTheStartFailsAtOnce) {
    QTcpServer free;
    ASSERT_TRUE(free.listen(QHostAddress::LocalHost));
    const quint16 port = free.serverPort();
    free.close();
    Define(u"サーバー名"_s, u"127.0.0.1:"_s + QString::number(port));
    QElapsedTimer timer;
    timer.start();
    ExpectFailedOpening(u"127.0.0.1"_s);
    EXPECT_LT(timer.elapsed(), kAtOnce);
}

TEST_F(Trouble, ASilentServerIsWaitedForAsLongAsTheConnectionsTimeOutSays) {
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    const QString text = server.ConnectionString().replace(ServerDatabase::Server(),
                                                           u"127.0.0.1:"_s + QString::number(silent.serverPort()));
    database::Connection connection;
    connection.ConnectionTimeout = 2;
    QElapsedTimer timer;
    timer.start();
    EXPECT_NE(NumberOf([&] { Connect(connection, text); }), 0);
    EXPECT_GE(timer.elapsed(), 1'000);
    EXPECT_LT(timer.elapsed(), kAtOnce);
    EXPECT_FALSE(connection.IsOpen());
}

TEST_F(Trouble, AStatementIsEndedWhenItsTimeOutIsOver) {
    database::Connection connection;
    connection.CommandTimeout = 1;
    Connect(connection, server.ConnectionString());
    QElapsedTimer timer;
    timer.start();
    const QString endless =
        u"SELECT COUNT(*) AS n FROM M担当者 a CROSS JOIN M担当者 b CROSS JOIN M担当者 c CROSS JOIN M担当者 d"
        u" CROSS JOIN M担当者 e WHERE a.氏名 <> b.カナ"_s;
    database::Recordset rows;
    EXPECT_NE(NumberOf([&] { rows.Open(endless, connection); }), 0);
    EXPECT_GE(timer.elapsed(), 900);
    EXPECT_LT(timer.elapsed(), kAtOnce);
    rows.Open(u"SELECT コード FROM M部門"_s, connection);
    EXPECT_FALSE(rows.AtEOF());
}

TEST_F(Trouble, AServerStoppedInMidSessionMakesEachSearchAFailedReadAndIsNotReconnected) {
    ASSERT_TRUE(OpenGeneral());
    ASSERT_FALSE(Search().isEmpty());
    StopSessions();
    QElapsedTimer timer;
    timer.start();
    ExpectFailedSearches(3);
    EXPECT_LT(timer.elapsed(), kAtOnce);
    // The next start-up reconnects.
    EXPECT_TRUE(OpenGeneral());
    EXPECT_FALSE(Search().isEmpty());
}

TEST_F(Trouble, AServerStoppedInsideASnapshotFailsTheLookUpsThatAreStillToCome) {
    ASSERT_TRUE(OpenGeneral());
    database::Recordset rows;
    database::ReadScope scope(Globals().MainConnection);
    ASSERT_TRUE(OpenRecordset(rows, u"SELECT 名称 FROM M部門 WHERE コード = '010'"_s));
    StopSessions();
    for (const QString& code : {u"020"_s, u"030"_s})
        EXPECT_FALSE(OpenRecordset(rows, u"SELECT 名称 FROM M部門 WHERE コード = '"_s + code + u'\''));
    EXPECT_TRUE(LastHistory().endsWith(u"SELECT 名称 FROM M部門 WHERE コード = ''030''"_s));
    scope.End();
    const database::ReadScope next(Globals().MainConnection);
    EXPECT_FALSE(OpenRecordset(rows, u"SELECT 名称 FROM M役職"_s));
}

TEST_F(Trouble, AServerStoppedInATransactionTakesItBack) {
    database::Connection connection;
    Connect(connection, server.ConnectionString());
    {
        database::Transaction writing(connection);
        connection.Execute(u"DELETE FROM M部門"_s);
        StopSessions();
        EXPECT_NE(NumberOf([&] { connection.Execute(u"DELETE FROM M役職"_s); }), 0);
        EXPECT_NE(NumberOf([&] { writing.Commit(); }), 0);
    }
    EXPECT_FALSE(server.Rows(u"SELECT * FROM M部門"_s).isEmpty());
}

TEST_F(Trouble, AUserWhoMayOnlyReadSearchesAndWritesNothing) {
    const ReadingUser user(server);
    Define(u"ユーザーID"_s, user.Name());
    Define(u"パスワード"_s, ReadingUser::Password());
    EXPECT_TRUE(OpenGeneral());
    EXPECT_FALSE(Search().isEmpty());
    database::Connection writer;
    Connect(writer, server.ConnectionString(user.Name(), ReadingUser::Password()));
    EXPECT_EQ(NumberOf([&] { writer.Execute(u"DELETE FROM M部門"_s); }), database::kPermissionDenied);
    writer.Close();
    Globals().MainConnection.Close();
}

TEST_F(Trouble, AUserWhoMayReadTheColumnsOfALookUpAloneIsAnsweredAllTheSameFromOneSnapshot) {
    const ReadingUser user(server);
    const QString account = user.Name() + (IsPostgres() ? u""_s : u"@127.0.0.1"_s);
    server.Run(u"REVOKE SELECT ON M部門 FROM %1"_s.arg(account));
    server.Run(u"GRANT SELECT (コード, 名称) ON M部門 TO %1"_s.arg(account));
    Define(u"ユーザーID"_s, user.Name());
    Define(u"パスワード"_s, ReadingUser::Password());
    ASSERT_TRUE(OpenGeneral());
    const qsizetype rows = History().size();
    const QList<QStringList> names = server.Rows(u"SELECT コード, 名称 FROM M部門 ORDER BY コード"_s);
    ASSERT_FALSE(names.isEmpty());
    const auto look = [](const QString& code) { return u"SELECT 名称 FROM M部門 WHERE コード = '%1'"_s.arg(code); };
    const database::ReadScope scope(Globals().MainConnection);
    database::Recordset found;
    server.Run(u"UPDATE M部門 SET 名称 = '新'"_s);
    // Enough lookups for fetching the whole table to pay off.
    for (int code = 960; code < 1000; ++code) EXPECT_FALSE(OpenRecordset(found, look(QString::number(code))));
    for (const QStringList& name : names) {
        ASSERT_TRUE(OpenRecordset(found, look(name[0]))) << LastHistory().toStdString();
        EXPECT_EQ(found[u"名称"].Text(), name[1]);
    }
    EXPECT_EQ(History().size(), rows);
    Globals().MainConnection.Close();
}

TEST_F(Trouble, TheGeneralConnectionOfTheProgramCannotWriteWhateverItsUserMay) {
    ASSERT_TRUE(OpenGeneral());
    EXPECT_EQ(NumberOf([] { Globals().MainConnection.Execute(u"DELETE FROM M部門"_s); }), database::kPermissionDenied);
}

TEST_F(Trouble, AMissingColumnFailsTheStatementsThatNameItAndIsToldByTheTool) {
    server.Run(u"ALTER TABLE M部門 DROP COLUMN 名称"_s);
    ASSERT_TRUE(OpenGeneral());
    ExpectFailedSearches(1);
    EXPECT_TRUE(LastHistory().contains(u"名称"_s));
    const ToolOutput used = RunServerTool({u"use-server"_s, installation.Root(), u"--odbc"_s, server.OdbcString()});
    EXPECT_EQ(used.status, 1);
    EXPECT_EQ(used.err,
              u"suite-setup: サーバーに足りないものがあります。表 M部門 の列 名称。server-init で作るか、"
              u"管理者に追加を依頼してください。\n"_s);
}

TEST_F(Trouble, NamesOutsideTheBasicPlaneComeAndAreFoundAsTheyAre) {
    const QString name = u"𠮷野家 𩸽子👩‍👧"_s;
    server.Run(u"UPDATE M担当者 SET 氏名 = '%1' WHERE コード = '00001'"_s.arg(name));
    ASSERT_TRUE(OpenGeneral());
    Globals().Conditions.EnrolmentKind = 9;
    Globals().Conditions.SearchName = u"𩸽"_s;
    EXPECT_EQ(Search(), QStringList{u"00001"_s});
    EXPECT_EQ(Globals().Rows.Text(StaffText::担当者名, 0), name);
}

// MariaDB treats it as an escape unless configured otherwise, PostgreSQL only if configured so.
TEST_F(Trouble, ABackslashInASearchIsASignWhateverTheServersSettingsSay) {
    if (IsPostgres())
        server.Run(u"ALTER ROLE %1 IN DATABASE %2 SET standard_conforming_strings = off"_s.arg(ServerDatabase::User(),
                                                                                               server.Name()));
    server.Run(u"UPDATE M担当者 SET 氏名 = CONCAT('山', %1, '田') WHERE コード = '00001'"_s.arg(
        IsPostgres() ? u"chr(92)"_s : u"CHAR(92)"_s));
    ASSERT_TRUE(OpenGeneral());
    Globals().Conditions.EnrolmentKind = 9;
    for (const QString& piece : {u"\\"_s, u"山\\"_s, u"\\田"_s}) {
        Globals().Conditions.SearchName = piece;
        EXPECT_EQ(Search(), QStringList{u"00001"_s}) << piece.toStdString();
    }
    database::Recordset rows;
    EXPECT_TRUE(OpenRecordset(rows, u"SELECT コード FROM M担当者 WHERE 氏名 = '山\\田'"_s));
    // If the backslash were an escape, the first literal would end at the third quote.
    EXPECT_FALSE(OpenRecordset(rows, u"SELECT コード FROM M担当者 WHERE 氏名 = '\\' OR 氏名 = ' OR 1 = 1 --'"_s));
    EXPECT_TRUE(rows.IsOpen()) << LastHistory().toStdString();
}

TEST_F(Trouble, TheProcessesLocaleDoesNotTouchTheTexts) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    ASSERT_TRUE(OpenGeneral());
    database::Recordset rows;
    EXPECT_TRUE(OpenRecordset(rows, u"SELECT 名称 AS 部門の名 FROM M部門 WHERE 名称 LIKE '%ぶ%' OR コード = '010'"_s));
    EXPECT_EQ(rows[u"部門の名"].Text(), server.Rows(u"SELECT 名称 FROM M部門 WHERE コード = '010'"_s)[0][0]);
    EXPECT_FALSE(OpenRecordset(rows, u"SELECT 無い列 FROM M部門"_s));
    EXPECT_TRUE(LastHistory().contains(u"無い列"_s));
    std::setlocale(LC_ALL, before.c_str());
}

TEST_F(Trouble, VeryLongTextsComeWholeBesideShortOnes) {
    const QString memo = u"長い𠮷ﾒﾓ"_s.repeated(100'000);
    server.Run(u"UPDATE M担当者 SET 担当者メモ = '%1' WHERE コード = '00002'"_s.arg(memo));
    ASSERT_TRUE(OpenGeneral());
    database::Recordset rows;
    ASSERT_TRUE(OpenRecordset(rows, u"SELECT コード, 担当者メモ FROM M担当者 ORDER BY コード"_s));
    EXPECT_EQ(rows.RecordCount(), 60);
    for (int i = 1; !rows.AtEOF(); rows.MoveNext(), ++i) {
        EXPECT_EQ(rows[u"コード"].Text().toInt(), i);
        EXPECT_EQ(rows[u"担当者メモ"].TextOr(u""_s) == memo, i == 2);
    }
}

TEST_F(Trouble, TheRegistrationProgramSavesAndSeesWhatOthersHaveSaved) {
    ASSERT_TRUE(OpenGeneral());
    StaffStore one, other;
    ASSERT_TRUE(one.Open());
    ASSERT_TRUE(other.Open());
    StaffRecord before;
    ASSERT_EQ(one.Load(u"00003"_s, before), StoreOutcome::Done);
    StaffValues values = before.values;
    values[0] = u"保存 ''花子\\"_s;
    EXPECT_EQ(one.Save(before, values), StoreOutcome::Done);
    EXPECT_EQ(other.Save(before, values), StoreOutcome::Changed);
    StaffRecord after;
    ASSERT_EQ(other.Load(u"00003"_s, after), StoreOutcome::Done);
    EXPECT_EQ(after.values[0], values[0]);
    EXPECT_EQ(other.Delete(after), StoreOutcome::Done);
    EXPECT_EQ(one.Load(u"00003"_s, before), StoreOutcome::Gone);
}

TEST_F(Trouble, AStoredOfficeCodeThatBreaksItsStatementFailsTheReadAndNotTheProgram) {
    ASSERT_TRUE(OpenGeneral());
    for (const QString& code : {u"' OR (= ログインID) OR '' = '"_s, u"' OR ログインID = ; --"_s,
                                u"' OR (LIKE) OR '' = '"_s, u"' OR 名称 LIKE 名称 OR '' = '"_s}) {
        Globals().Environment.OperatingOfficeCode = code;
        EXPECT_NE(NumberOf([] { LoadCompanyInfo(); }), 0) << code.toStdString();
        EXPECT_EQ(installation.Configuration().Value(u"SELECT 運用事業所コード FROM 動作環境定義"_s), u"000"_s);
    }
    Globals().Environment.OperatingOfficeCode = u"000"_s;
    EXPECT_TRUE(LoadCompanyInfo());
}
