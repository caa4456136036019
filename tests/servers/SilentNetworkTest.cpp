// The network between a program and its server drops all data, or breaks, during a session.

#include <QElapsedTimer>

#include "data/Catalogue.h"
#include "data/Recordsets.h"
#include "inquiry/StaffQuery.h"
#include "servers/NetworkRelay.h"
#include "servers/ServerFixture.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStatementSeconds = 1;
constexpr qint64 kAtOnce = 4'000;   // milliseconds on a busy machine, less than any timeout
constexpr qint64 kInTime = 30'000;  // on a busy machine; more than the timeout of 1 s plus 5 s
constexpr qint64 kShortest = 1'000 * kStatementSeconds;

class SilentNetwork : public OnServer {
  protected:
    SilentNetwork() { Open(Globals().MainConnection, database::ConnectMode::Read); }

    /// Opens the connection as the program does, but through the relay and with a short statement timeout.
    void Open(database::Connection& connection, database::ConnectMode mode) const {
        connection = database::Connection();
        connection.CommandTimeout = kStatementSeconds;
        connection.CursorLocation = database::CursorLocation::Client;
        connection.Mode = mode;
        connection.Rules = SuiteTextRules();
        connection.Open(server.ConnectionString().replace(ServerDatabase::Server(), relay.Address()));
    }
    /// Runs a search that fails with an empty list and one エラー row with its statement in the run history. Returns
    /// its duration in ms.
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
    // The connection has been shut down: the next search fails without waiting for the timeout.
    EXPECT_LT(FailedSearch(), kAtOnce);
    EXPECT_TRUE(OpenGeneral());
    EXPECT_FALSE(Search().isEmpty());
}

TEST_F(SilentNetwork, InsideASnapshotIsWaitedForOnce) {
    database::Recordset rows;
    database::ReadScope scope(Globals().MainConnection);
    ASSERT_TRUE(OpenRecordset(rows, u"SELECT 名称 FROM M部門 WHERE コード = '010'"_s));
    relay.FallSilent();
    EXPECT_FALSE(OpenRecordset(rows, u"SELECT 名称 FROM M部門 WHERE コード = '020'"_s));
    EXPECT_TRUE(LastHistory().endsWith(u"SELECT 名称 FROM M部門 WHERE コード = ''020''"_s));
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(OpenRecordset(rows, u"SELECT 名称 FROM M部門 WHERE コード = '030'"_s));
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
