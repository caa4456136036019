// The network between a program and its server falls silent, or breaks, in the middle of a session.

#include <QElapsedTimer>

#include "data/Catalogue.h"
#include "data/Recordsets.h"
#include "inquiry/StaffQuery.h"
#include "servers/NetworkRelay.h"
#include "servers/ServerFixture.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStatementSeconds = 1;
constexpr qint64 kAtOnce = 4'000;   // milliseconds on a busy machine, below every time-out
constexpr qint64 kInTime = 30'000;  // on a busy machine, behind a time-out of a second and the five that come on top
constexpr qint64 kShortest = 1'000 * kStatementSeconds;

class SilentNetwork : public OnServer {
  protected:
    SilentNetwork() { Open(Globals().MainConnection, database::ConnectMode::Read); }

    /// As the program opens its own, but through the relay and with a statement's time-out that a test can wait for.
    void Open(database::Connection& connection, database::ConnectMode mode) const {
        connection = database::Connection();
        connection.CommandTimeout = kStatementSeconds;
        connection.CursorLocation = database::CursorLocation::Client;
        connection.Mode = mode;
        connection.Rules = SuiteTextRules();
        connection.Open(server.ConnectionString().replace(ServerDatabase::Server(), relay.Address()));
    }
    /// Milliseconds of a search that leaves an empty list, and a row エラー with its statement behind the others.
    qint64 FailedSearch() const {
        const qsizetype rows = History().size();
        QElapsedTimer timer;
        timer.start();
        EXPECT_EQ(Search(), QStringList());
        const qint64 elapsed = timer.elapsed();
        EXPECT_EQ(History().size(), rows + 1);
        EXPECT_TRUE(LastHistory().startsWith(u"エラー "_s)) << LastHistory().toStdString();
        EXPECT_TRUE(LastHistory().endsWith(BuildStaffStatement().replace(u"'"_s, u"''"_s)));
        EXPECT_TRUE(services.dialogs.shown.isEmpty());
        return elapsed;
    }

    NetworkRelay relay{ServerDatabase::Server()};
};

}  // namespace

TEST_F(SilentNetwork, EndsASearchAsAFailedReadWhenItsTimeIsOverAndTheProgramAnswersOn) {
    ASSERT_FALSE(Search().isEmpty());
    relay.FallSilent();
    const qint64 elapsed = FailedSearch();
    EXPECT_GE(elapsed, kShortest);
    EXPECT_LT(elapsed, kInTime);
    EXPECT_TRUE(LastHistory().startsWith(u"エラー サーバーが 6 秒待っても応答しないため、接続を切りました。SELECT "_s))
        << LastHistory().toStdString();
    // Nobody waits for the same silence twice.
    EXPECT_LT(FailedSearch(), kAtOnce);
    EXPECT_TRUE(OpenGeneral());
    EXPECT_FALSE(Search().isEmpty());
}

TEST_F(SilentNetwork, InsideASnapshotIsWaitedForOnce) {
    database::Recordset rows;
    database::ReadScope scope(Globals().MainConnection);
    ASSERT_TRUE(OpenRecordset(rows, u"SELECT 名称 FROM M部門 WHERE コード = '010'"_s, false));
    relay.FallSilent();
    EXPECT_FALSE(OpenRecordset(rows, u"SELECT 名称 FROM M部門 WHERE コード = '020'"_s, false));
    EXPECT_TRUE(LastHistory().endsWith(u"SELECT 名称 FROM M部門 WHERE コード = ''020''"_s));
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(OpenRecordset(rows, u"SELECT 名称 FROM M部門 WHERE コード = '030'"_s, false));
    EXPECT_TRUE(LastHistory().endsWith(u"SELECT 名称 FROM M部門 WHERE コード = ''030''"_s));
    scope.End();
    const database::ReadScope next(Globals().MainConnection);
    Globals().MainConnection.Close();
    EXPECT_LT(timer.elapsed(), kAtOnce);
}

TEST_F(SilentNetwork, InATransactionIsAFailureAndNothingIsKept) {
    database::Connection connection;
    Open(connection, database::ConnectMode::ReadWrite);
    {
        database::Transaction writing(connection);
        connection.Execute(u"DELETE FROM M部門"_s);
        relay.FallSilent();
        QElapsedTimer timer;
        timer.start();
        EXPECT_THROW(connection.Execute(u"DELETE FROM M役職"_s), database::DatabaseError);
        EXPECT_LT(timer.elapsed(), kInTime);
        EXPECT_THROW(writing.Commit(), database::DatabaseError);
    }
    EXPECT_FALSE(server.Rows(u"SELECT * FROM M部門"_s).isEmpty());
    EXPECT_FALSE(server.Rows(u"SELECT * FROM M役職"_s).isEmpty());
}

TEST_F(SilentNetwork, AConnectionThatIsResetFailsAtOnce) {
    ASSERT_FALSE(Search().isEmpty());
    relay.Break();
    EXPECT_LT(FailedSearch(), kAtOnce);
    EXPECT_LT(FailedSearch(), kAtOnce);
    EXPECT_TRUE(OpenGeneral());
    EXPECT_FALSE(Search().isEmpty());
}
