#include "platform/EndRequest.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "database/Database.h"
#include "database/DatabaseFile.h"

using namespace Qt::StringLiterals;
using namespace database;
using namespace platform;
using namespace std::chrono_literals;

namespace {

const QString kEndless =
    u"SELECT COUNT(*) AS n FROM (WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT n FROM c)"_s;

class EndRequestTest : public testing::Test {
  protected:
    EndRequestTest() {
        file.Run(u"CREATE VIEW 終わらない AS "_s + kEndless +
                 u"; CREATE TRIGGER 止まらない AFTER UPDATE ON 印 BEGIN SELECT n FROM 終わらない; END;"
                 " INSERT INTO 印 VALUES ('a')"_s);
        connection.Open(file.ConnectionString());
        SetEndHandler([this] {
            ++ends;
            EXPECT_FALSE(EndRequested());
            connection.Execute(u"INSERT INTO 印 VALUES ('終了')"_s);
            connection.Close();
        });
    }
    ~EndRequestTest() override { SetEndHandler({}); }

    /// Runs an endless statement in `work`, and requests the end of the program meanwhile. Returns the error's text.
    QString BreakOff(const std::function<void()>& work) {
        std::thread system([this] {
            const OtherProgram other(file.Path());
            while (other.Run("BEGIN EXCLUSIVE; ROLLBACK") == SQLITE_OK) std::this_thread::yield();
            RequestEnd();
        });
        const QString failure = ErrorOf(work);
        system.join();
        return failure;
    }

    DatabaseFile file;
    Connection connection;
    int ends = 0;
};

}  // namespace

TEST_F(EndRequestTest, AnEndlessViewIsBrokenOffAndTheProgramEnds) {
    EXPECT_EQ(BreakOff([this] { Column(connection, u"SELECT n FROM 終わらない"_s, u"n"); }), u"interrupted"_s);
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(EndRequested());
    EXPECT_EQ(file.Value(u"SELECT group_concat(値, ',') FROM 印"_s), u"a,終了"_s);
}

TEST_F(EndRequestTest, AnEndlessTriggerIsBrokenOffAndItsTransactionRolledBack) {
    EXPECT_EQ(BreakOff([this] {
                  Transaction whole(connection);
                  connection.Execute(u"INSERT INTO 印 VALUES ('b')"_s);
                  connection.Execute(u"UPDATE 印 SET 値 = 'c'"_s);
                  whole.Commit();
              }),
              u"interrupted"_s);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(file.Value(u"SELECT group_concat(値, ',') FROM 印"_s), u"a,終了"_s);
}

TEST_F(EndRequestTest, AnEndlessReadInsideATransactionRollsItBackToo) {
    EXPECT_EQ(BreakOff([this] {
                  Transaction whole(connection);
                  connection.Execute(u"INSERT INTO 印 VALUES ('b')"_s);
                  Column(connection, u"SELECT n FROM 終わらない"_s, u"n");
              }),
              u"interrupted"_s);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(file.Value(u"SELECT group_concat(値, ',') FROM 印"_s), u"a,終了"_s);
}

TEST_F(EndRequestTest, AStatementThatEndsIsFinishedInSpiteOfARequest) {
    RequestEnd();
    connection.Execute(u"INSERT INTO 印 VALUES ('b')"_s);
    EXPECT_EQ(ends, 0);
    CarryOutEndRequest();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(file.Value(u"SELECT group_concat(値, ',') FROM 印"_s), u"a,b,終了"_s);
}

TEST_F(EndRequestTest, ARequestOfTheSourceBreaksAStatementOffAndIsCarriedOut) {
    class Source : public EndSource {
      public:
        bool Pending() const override { return pending; }
        void CarryOut() override {
            ++carriedOut;
            pending = false;
        }
        std::atomic<bool> pending = true;
        int carriedOut = 0;
    } source;
    SetEndSource(&source);
    EXPECT_EQ(ErrorOf([this] { Column(connection, u"SELECT n FROM 終わらない"_s, u"n"); }), u"interrupted"_s);
    SetEndSource(nullptr);
    EXPECT_EQ(source.carriedOut, 1);
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(connection.IsOpen());
}

TEST_F(EndRequestTest, AStatementOfTheEndIsBrokenOffAfterFiveSeconds) {
    const Ending ending;
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(ErrorOf([this] { Column(connection, u"SELECT n FROM 終わらない"_s, u"n"); }), u"interrupted"_s);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 5s);
    EXPECT_EQ(ends, 0);
}
