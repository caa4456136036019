// Behaviour specific to the desktop engine: its dialect, and its quirks that the session works around.

#include <gtest/gtest.h>

#include "database/Database.h"
#include "database/DatabaseFile.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

class SqliteSession : public testing::Test {
  protected:
    void SetUp() override {
        file.Run(u"INSERT INTO 印 VALUES ('b'), ('A'), (NULL)"_s);
        connection.CommandTimeout = 1;
        connection.Open(file.ConnectionString());
    }

    QString Words(const QString& sql) {
        return ErrorOf([&] { connection.Execute(sql); });
    }

    DatabaseFile file;
    Connection connection;
};

}  // namespace

TEST_F(SqliteSession, FailuresSpeakInTheEnginesWordsOfTheStatementAsWritten) {
    EXPECT_EQ(Words(u"SELECT 値 FROM 印 WHERE 値 <> ''印.値 LIKE '%1%'"_s), u"near \"印\": syntax error"_s);
    EXPECT_EQ(Words(u"SELECT 値 FROM 印 WHERE 値 = 'a' 'b'"_s), u"near \"'b'\": syntax error"_s);
    EXPECT_EQ(Words(u"SELECT 値 FROM 印 WHERE 値 = 'it's'"_s), u"near \"s\": syntax error"_s);
    EXPECT_EQ(Words(u"SELECT [無い] FROM 印"_s), u"no such column: 無い"_s);
    EXPECT_EQ(Words(u"SELECT 値 FROM 無い"_s), u"no such table: 無い"_s);
    EXPECT_EQ(Words(u"SELECT 値 FROM 印 WHERE 値 LIKE '[a'"_s), u"LIKE: \"[\" without \"]\""_s);
    EXPECT_EQ(Words(u"SELECT 1; SELECT 2"_s), u"SQL 文は 1 つだけ指定してください。"_s);
    EXPECT_EQ(Words(u"SELECT 値 FROM 印 WHERE 値 = ?1"_s), u"必要なパラメーターの値が指定されていません。"_s);
}

TEST_F(SqliteSession, ALiteralThatIsNoValueStaysWhereItIs) {
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印 WHERE 値 <> 'x' ORDER BY 値 COLLATE 'NOCASE'"_s, u"値"),
              QStringList({u"A"_s, u"b"_s}));
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印 WHERE 値 IN (SELECT 値 FROM '印' WHERE 値 <> 'b')"_s, u"値"),
              QStringList({u"A"_s}));
}

TEST_F(SqliteSession, ALiteralMayHeadAColumnAndAnExpressionHasNoType) {
    Recordset rows;
    rows.Open(u"SELECT 1 + 1 AS '式' FROM 印 WHERE 値 = 'b'"_s, connection);
    EXPECT_EQ(rows[u"式"].Text(), u"2"_s);
    EXPECT_EQ(rows[u"式"].DeclaredType(), u""_s);
}

TEST_F(SqliteSession, LikeTakesAnEscape) {
    connection.Execute(u"INSERT INTO 印 VALUES ('5%'), ('50')"_s);
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印 WHERE 値 LIKE '5\\%' ESCAPE '\\'"_s, u"値"),
              QStringList({u"5%"_s}));
    EXPECT_EQ(Words(u"SELECT 値 FROM 印 WHERE 値 LIKE 'a' ESCAPE 'ab'"_s),
              u"ESCAPE expression must be a single character"_s);
}

TEST_F(SqliteSession, APatternMayComeFromAnotherColumn) {
    connection.Execute(u"CREATE TABLE 型 (型 TEXT)"_s);
    connection.Execute(u"INSERT INTO 型 VALUES ('a'), ('%'), ('x')"_s);
    EXPECT_EQ(Column(connection, u"SELECT 型 FROM 型 INNER JOIN 印 ON 印.値 LIKE 型.型 ORDER BY 型, 値"_s, u"型"),
              QStringList({u"%"_s, u"%"_s, u"a"_s}));
}

TEST_F(SqliteSession, EveryTextThatTheEngineTakesIsTakenTwice) {
    for (int time = 0; time < 2; ++time) {
        connection.Execute(u"CREATE TABLE 仮 (a TEXT)"_s);
        connection.Execute(u"INSERT INTO 仮 (a) VALUES ('1')"_s);
        EXPECT_EQ(Column(connection, u"SELECT a FROM 仮 WHERE a = '1'"_s, u"a"), QStringList({u"1"_s}));
        connection.Execute(u"DROP TABLE 仮"_s);
    }
}

TEST_F(SqliteSession, MoreKindsOfStatementsThanAreKeptPreparedRun) {
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ(Column(connection, u"SELECT %1 AS a FROM 印 WHERE 値 = 'b'"_s.arg(i % 150), u"a"),
                  QStringList({QString::number(i % 150)}));
    const QString giant = u"SELECT 値 FROM 印 WHERE 値 = 'b'"_s + QString(40000, u' ');
    EXPECT_EQ(Column(connection, giant, u"値"), QStringList({u"b"_s}));
    EXPECT_EQ(Column(connection, giant, u"値"), QStringList({u"b"_s}));
}

TEST_F(SqliteSession, AWriterWaitsForALockAndFailsWithTheEnginesWords) {
    const OtherProgram other(file.Path());
    ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
    EXPECT_EQ(Words(u"INSERT INTO 印 VALUES ('c')"_s), u"database is locked"_s);
    ASSERT_EQ(other.Run("COMMIT"), SQLITE_OK);
    EXPECT_EQ(Words(u"INSERT INTO 印 VALUES ('c')"_s), u""_s);
}

TEST_F(SqliteSession, ABrokenRuleOfATableHasANumberOfItsOwn) {
    connection.Execute(u"CREATE TABLE 鍵 (a TEXT PRIMARY KEY)"_s);
    connection.Execute(u"INSERT INTO 鍵 VALUES ('1')"_s);
    EXPECT_EQ(NumberOf([&] { connection.Execute(u"INSERT INTO 鍵 VALUES ('1')"_s); }), kIntegrityViolation);
}

TEST_F(SqliteSession, ATextOf16MebibytesIsReadAndALongerOneIsAnError) {
    connection.Execute(u"CREATE VIEW 大 AS SELECT hex(zeroblob(8388608)) AS a"_s);
    const QStringList cells = Column(connection, u"SELECT a FROM 大"_s, u"a");
    ASSERT_EQ(cells.size(), 1);
    EXPECT_EQ(cells.first().size(), 16 << 20);
    EXPECT_EQ(ErrorOf([&] { Column(connection, u"SELECT a || 'x' AS b FROM 大"_s, u"b"); }),
              u"値が長すぎます (16 MiB まで)。"_s);
    EXPECT_EQ(Words(u"SELECT length(a || a) FROM 大"_s), u"string or blob too big"_s);
}

TEST_F(SqliteSession, ATransactionOfTheCallerIsNoReadScope) {
    connection.Execute(u"BEGIN IMMEDIATE"_s);
    {
        const ReadScope scope(connection);
        connection.Execute(u"INSERT INTO 印 VALUES ('c')"_s);
    }
    connection.Execute(u"ROLLBACK"_s);
    EXPECT_EQ(Column(connection, u"SELECT COUNT(*) AS n FROM 印"_s, u"n"), QStringList({u"3"_s}));
}
