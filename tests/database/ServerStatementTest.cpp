// Statements translated for the servers.

#include <gtest/gtest.h>

#include "database/DatabaseError.h"
#include "database/odbc/ServerEngine.h"
#include "database/sql/StatementAdapter.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

struct Case {
    QString name, statement, postgresql, mariadb;
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.name.toStdString(); }

const QString kAsciiLower = u"CAST(LOWER(CONVERT(CAST(CONVERT(%1 USING utf8mb4) AS BINARY) USING latin1)) AS BINARY)"_s;
const TextRules kRules = {{u"氏名"_s, u"カナ"_s}, {u"ログインID"_s}};

AdaptedStatement For(const QString& engine, const QString& statement) {
    return Adapt(statement, EngineOf(engine).dialect, kRules);
}

class ServerStatement : public testing::TestWithParam<Case> {};

}  // namespace

TEST_P(ServerStatement, IsWrittenAsTheEngineTakesIt) {
    const Case& c = GetParam();
    EXPECT_EQ(For(u"PostgreSQL"_s, c.statement).text, c.postgresql);
    EXPECT_EQ(For(u"MariaDB"_s, c.statement).text, c.mariadb);
}

INSTANTIATE_TEST_SUITE_P(
    Of, ServerStatement,
    testing::Values(
        Case{u"names in brackets lose their capitals where plain ones do"_s,
             u"SELECT TOP 1 [T閲覧].[伝票No] FROM [T閲覧] ORDER BY [T閲覧].[閲覧日付] DESC"_s,
             u"SELECT \"t閲覧\".\"伝票no\" FROM \"t閲覧\" ORDER BY \"t閲覧\".\"閲覧日付\" DESC NULLS LAST LIMIT 1"_s,
             u"SELECT \"T閲覧\".\"伝票No\" FROM \"T閲覧\" ORDER BY \"T閲覧\".\"閲覧日付\" DESC LIMIT 1"_s},
        Case{u"names in double quotes too"_s, u"SELECT \"M担当者\".コード FROM \"M担当者\""_s,
             u"SELECT \"m担当者\".コード FROM \"m担当者\""_s, u"SELECT \"M担当者\".コード FROM \"M担当者\""_s},
        Case{
            u"counts are sorted as numbers"_s,
            u"SELECT コード, COUNT(氏名) AS n FROM t GROUP BY コード ORDER BY COUNT(t.氏名) DESC, n, 2, count([カナ])"_s,
            u"SELECT コード, COUNT(氏名) AS n FROM t GROUP BY コード ORDER BY COUNT(t.氏名) DESC NULLS LAST,"
            u" n NULLS FIRST, 2 NULLS FIRST, count(\"カナ\") NULLS FIRST"_s,
            u"SELECT コード, COUNT(氏名) AS n FROM t GROUP BY コード ORDER BY COUNT(t.氏名) DESC, n, 2, count(\"カナ\")"_s},
        Case{u"Nulls come first"_s, u"SELECT a FROM t ORDER BY a, t.b DESC, c ASC"_s,
             u"SELECT a FROM t ORDER BY a NULLS FIRST, t.b DESC NULLS LAST, c ASC NULLS FIRST"_s,
             u"SELECT a FROM t ORDER BY a, t.b DESC, c ASC"_s},
        Case{u"words are sorted by a key, or by whoever reads them"_s,
             u"SELECT TOP 1000 a FROM t WHERE b = '1' ORDER BY t.郵便番号, t.氏名 DESC"_s,
             u"SELECT a FROM t WHERE b = '1' ORDER BY t.郵便番号 NULLS FIRST, suite_order(t.氏名) DESC NULLS LAST"
             u" LIMIT 1000"_s,
             u"SELECT a, t.郵便番号, t.氏名 FROM t WHERE b = '1'"_s},
        Case{u"LIKE ignores case, width and kana type"_s, u"SELECT a FROM t WHERE t.氏名 LIKE '%ﾔＡ\\%' AND b = '1'"_s,
             u"SELECT a FROM t WHERE suite_fold(t.氏名) LIKE '%やa\\%' ESCAPE '' AND b = '1'"_s,
             u"SELECT a FROM t WHERE t.氏名 REGEXP '(?s)^(?>.*?[やヤﾔ][AaＡａ][\\\\＼])' AND b = '1'"_s},
        Case{u"NOT stays in front"_s, u"SELECT a FROM t WHERE 氏名 NOT LIKE '山'"_s,
             u"SELECT a FROM t WHERE suite_fold(氏名) NOT LIKE '山' ESCAPE ''"_s,
             u"SELECT a FROM t WHERE 氏名 NOT REGEXP '(?s)^山\\z'"_s},
        Case{u"a list needs a regular expression"_s, u"SELECT a FROM t WHERE [氏名] LIKE '[山川]%'"_s,
             u"SELECT a FROM t WHERE suite_fold(\"氏名\") ~ '^[山川](?:.|\\n)*$'"_s,
             u"SELECT a FROM t WHERE \"氏名\" REGEXP '(?s)^(?:[山川])'"_s},
        Case{u"a quote in a pattern stays one"_s, u"SELECT a FROM t WHERE 氏名 LIKE '%''%'"_s,
             u"SELECT a FROM t WHERE suite_fold(氏名) LIKE '%''%' ESCAPE ''"_s,
             u"SELECT a FROM t WHERE 氏名 REGEXP '(?s)^(?>.*?[\\''＇])'"_s},
        Case{u"login names are compared without case"_s,
             u"SELECT a FROM t WHERE t.ログインID = 'Ab' AND コード = 'Ab'"_s,
             u"SELECT a FROM t WHERE lower(t.ログインID COLLATE \"C\") = lower('Ab' COLLATE \"C\") AND コード = 'Ab'"_s,
             u"SELECT a FROM t WHERE "_s + kAsciiLower.arg(u"t.ログインID"_s) + u" = "_s + kAsciiLower.arg(u"'Ab'"_s) +
                 u" AND コード = 'Ab'"_s},
        Case{
            u"joins by a sign become joins"_s,
            u"SELECT TOP 1000 X.a FROM X,Y,Z WHERE Y.c(+) = Z.y AND X.c(+) = Z.x AND (Z.a = '1' OR Z.b = '2') ORDER BY Z.a"_s,
            u"SELECT X.a FROM Z LEFT JOIN X ON X.c = Z.x LEFT JOIN Y ON Y.c = Z.y WHERE (Z.a = '1' OR Z.b = '2')"
            u" ORDER BY Z.a NULLS FIRST LIMIT 1000"_s,
            u"SELECT X.a FROM Z LEFT JOIN X ON X.c = Z.x LEFT JOIN Y ON Y.c = Z.y WHERE (Z.a = '1' OR Z.b = '2')"
            u" ORDER BY Z.a LIMIT 1000"_s},
        Case{u"a sign in an alternative is not read"_s, u"SELECT 1 FROM X,Y WHERE X.a(+) = Y.a OR X.b = 1"_s,
             u"SELECT 1 FROM X,Y WHERE X.a(+) = Y.a OR X.b = 1"_s,
             u"SELECT 1 FROM X,Y WHERE X.a(+) = Y.a OR X.b = 1"_s},
        Case{u"right joins are taken as they stand"_s,
             u"SELECT 1 FROM X RIGHT JOIN (Y RIGHT JOIN Z ON a = b) ON c = d"_s,
             u"SELECT 1 FROM X RIGHT JOIN (Y RIGHT JOIN Z ON a = b) ON c = d"_s,
             u"SELECT 1 FROM X RIGHT JOIN (Y RIGHT JOIN Z ON a = b) ON c = d"_s},
        Case{u"LIKE over a bracket, a call or a literal"_s,
             u"SELECT a FROM t WHERE (b || c) LIKE 'あ%' AND f(x, y) NOT LIKE 'あ' OR 'ア' LIKE ('あ')"_s,
             u"SELECT a FROM t WHERE suite_fold((b || c)) LIKE 'あ%' ESCAPE '' AND suite_fold(f(x, y)) NOT LIKE 'あ'"
             u" ESCAPE '' OR suite_fold('ア') LIKE 'あ' ESCAPE ''"_s,
             u"SELECT a FROM t WHERE (b || c) REGEXP '(?s)^[あアｱ]' AND f(x, y) NOT REGEXP '(?s)^[あアｱ]\\z'"
             u" OR 'ア' REGEXP '(?s)^[あアｱ]\\z'"_s},
        Case{u"positions and aliases of words are sorted as words"_s,
             u"SELECT コード, t.氏名 AS 名, カナ k FROM t ORDER BY 2, 名 DESC, k, 1"_s,
             u"SELECT コード, t.氏名 AS 名, カナ k FROM t ORDER BY suite_order(t.氏名) NULLS FIRST,"
             u" suite_order(t.氏名) DESC NULLS LAST, suite_order(カナ) NULLS FIRST, 1 NULLS FIRST"_s,
             u"SELECT コード, t.氏名 AS 名, カナ k, t.氏名, t.氏名, カナ, コード FROM t"_s},
        Case{u"an alias counts before a column of its name"_s, u"SELECT コード AS 氏名 FROM t ORDER BY 氏名"_s,
             u"SELECT コード AS 氏名 FROM t ORDER BY suite_order(コード) NULLS FIRST"_s,
             u"SELECT コード AS 氏名, コード FROM t"_s},
        Case{u"codes are sorted by the engine whatever else there is"_s,
             u"SELECT DISTINCT コード FROM t UNION SELECT コード FROM u ORDER BY コード, 1"_s,
             u"SELECT DISTINCT コード FROM t UNION SELECT コード FROM u ORDER BY コード NULLS FIRST, 1 NULLS FIRST"_s,
             u"SELECT DISTINCT コード FROM t UNION SELECT コード FROM u ORDER BY コード, 1"_s},
        Case{u"both sides of a comparison of login names may be brackets"_s,
             u"SELECT 1 FROM t WHERE (SELECT x FROM u) = ログインID"_s,
             u"SELECT 1 FROM t WHERE lower((SELECT x FROM u) COLLATE \"C\") = lower(ログインID COLLATE \"C\")"_s,
             u"SELECT 1 FROM t WHERE "_s + kAsciiLower.arg(u"(SELECT x FROM u)"_s) + u" = "_s +
                 kAsciiLower.arg(u"ログインID"_s)},
        Case{u"a comparison that lacks a side is the engine's to refuse"_s,
             u"SELECT 1 FROM t WHERE (= ログインID) OR ログインID ="_s,
             u"SELECT 1 FROM t WHERE (= ログインID) OR ログインID ="_s,
             u"SELECT 1 FROM t WHERE (= ログインID) OR ログインID ="_s},
        Case{u"a missing AND is the engine's to refuse"_s, u"SELECT 1 FROM t WHERE a <> ''t.電話 LIKE '%1%'"_s,
             u"SELECT 1 FROM t WHERE a <> ''suite_fold(t.電話) LIKE '%1%' ESCAPE ''"_s,
             u"SELECT 1 FROM t WHERE a <> ''t.電話 REGEXP '(?s)^(?>.*?[1１])'"_s},
        Case{u"comments are left out, for engines read them otherwise"_s,
             u"SELECT a/*! , b */FROM t --x\n WHERE a = '/*' -- y"_s, u"SELECT a FROM t WHERE a = '/*' "_s,
             u"SELECT a FROM t WHERE a = '/*' "_s},
        Case{u"a place of Nulls that is written stays"_s, u"SELECT a FROM t ORDER BY a DESC NULLS FIRST, b"_s,
             u"SELECT a FROM t ORDER BY a DESC NULLS FIRST, b NULLS FIRST"_s,
             u"SELECT a FROM t ORDER BY a DESC NULLS FIRST, b"_s},
        Case{u"a column whose name is LIKE"_s, u"SELECT t.like FROM t"_s, u"SELECT t.like FROM t"_s,
             u"SELECT t.like FROM t"_s},
        Case{u"a statement of another kind passes"_s, u"CREATE TABLE [t] (氏名 TEXT)"_s,
             u"CREATE TABLE [t] (氏名 TEXT)"_s, u"CREATE TABLE [t] (氏名 TEXT)"_s}),
    [](const auto& set) { return "No" + std::to_string(set.index); });

TEST(ServerStatementOrder, WhatMariaDbDoesNotSortIsToldWithItsLimit) {
    const AdaptedStatement adapted = For(u"MariaDB"_s, u"SELECT TOP 7 a FROM t ORDER BY b, 氏名 DESC"_s);
    ASSERT_EQ(adapted.order.size(), 2);
    EXPECT_FALSE(adapted.order[0].asText || adapted.order[0].descending);
    EXPECT_TRUE(adapted.order[1].asText && adapted.order[1].descending);
    EXPECT_EQ(adapted.limit, 7);
    EXPECT_TRUE(For(u"PostgreSQL"_s, u"SELECT TOP 7 a FROM t ORDER BY 氏名"_s).order.isEmpty());
}

namespace {

/// Error number if the statement can't be translated for the engine; 0 if it can.
long UsageError(const QString& engine, const QString& statement) {
    try {
        For(engine, statement);
        return 0;
    } catch (const DatabaseError& error) {
        EXPECT_FALSE(error.Description().isEmpty());
        return error.Number();
    }
}

class ServerStatementRefusal : public testing::TestWithParam<QString> {};

}  // namespace

TEST_P(ServerStatementRefusal, IsAFailureOfTheStatementForEveryServer) {
    EXPECT_EQ(UsageError(u"PostgreSQL"_s, GetParam()), kStatementFailure);
    EXPECT_EQ(UsageError(u"MariaDB"_s, GetParam()), kStatementFailure);
    EXPECT_EQ(AdaptStatement(GetParam(), {}, {kRules.sortedAsText, {}}), GetParam())
        << "the desktop engine judges itself";
}

INSTANTIATE_TEST_SUITE_P(
    OfLike, ServerStatementRefusal,
    testing::Values(u"SELECT a FROM t WHERE 氏名 LIKE '%[ab%'"_s, u"SELECT a FROM t WHERE a LIKE t.b"_s,
                    u"SELECT a FROM t WHERE a LIKE '%' || b"_s, u"SELECT a FROM t WHERE a LIKE 'x' || '%'"_s,
                    u"SELECT a FROM t WHERE a LIKE 'x' '%'"_s, u"SELECT a FROM t WHERE a LIKE ('%' || b)"_s,
                    u"SELECT a FROM t WHERE a LIKE concat('%', b)"_s, u"SELECT a FROM t WHERE a LIKE E'x'"_s,
                    u"SELECT a FROM t WHERE a LIKE NULL"_s, u"SELECT a FROM t WHERE a LIKE"_s,
                    u"SELECT a FROM t WHERE LIKE 'x'"_s, u"SELECT a FROM t WHERE b || a LIKE 'x'"_s,
                    u"SELECT a FROM t WHERE b = a LIKE 'x'"_s, u"SELECT a FROM t WHERE BINARY a LIKE 'x'"_s,
                    u"SELECT a FROM t WHERE a COLLATE c LIKE 'x'"_s, u"SELECT a FROM t WHERE a LIKE 'x' COLLATE c"_s,
                    u"SELECT a FROM t WHERE a LIKE 'x' ESCAPE b"_s, u"SELECT a FROM t WHERE a LIKE 'x' ESCAPE 'ab'"_s,
                    u"SELECT a FROM t WHERE a BETWEEN b AND c LIKE 'x'"_s,
                    u"SELECT a FROM t WHERE a LIKE 'b' LIKE 'c'"_s, u"SELECT like('%x%', a) FROM t"_s,
                    u"SELECT \"like\"('%x%', a) FROM t"_s, u"UPDATE t SET a = b LIKE 'x'"_s,
                    u"WITH s AS (SELECT 氏名 FROM t) SELECT 1 FROM s WHERE 氏名 LIKE 'x'"_s,
                    u"(SELECT a FROM t WHERE 氏名 LIKE 'x')"_s, u"EXPLAIN SELECT a FROM t WHERE 氏名 LIKE 'x'"_s,
                    u"SELECT a FROM t WHERE "_s + QString(300, u'(') + u"a LIKE 'x'"_s + QString(300, u')')));

INSTANTIATE_TEST_SUITE_P(
    OfOrder, ServerStatementRefusal,
    testing::Values(u"SELECT DISTINCT 氏名 FROM t ORDER BY 氏名"_s, u"SELECT DISTINCT 氏名 FROM t ORDER BY 1"_s,
                    u"SELECT 氏名 FROM t UNION SELECT 氏名 FROM u ORDER BY 氏名"_s,
                    u"SELECT コード AS x FROM t UNION SELECT 氏名 FROM u ORDER BY x"_s,
                    u"SELECT * FROM t UNION SELECT * FROM u ORDER BY 1"_s, u"SELECT * FROM t ORDER BY 2"_s,
                    u"SELECT 氏名 || カナ AS x FROM t ORDER BY x"_s, u"SELECT コード, UPPER(氏名) FROM t ORDER BY 2"_s,
                    u"SELECT 1 FROM t ORDER BY 氏名 || カナ"_s, u"SELECT 1 FROM t ORDER BY コード, MAX(t.氏名) DESC"_s,
                    u"SELECT 1 FROM t ORDER BY 氏名 COLLATE x"_s,
                    u"SELECT 1 FROM t ORDER BY MAX(COUNT(コード) || 氏名)"_s, u"SELECT 1 FROM t ORDER BY (氏名)"_s,
                    u"SELECT x FROM (SELECT 氏名 AS x FROM t) AS s ORDER BY x"_s,
                    u"SELECT x FROM (SELECT 氏名 AS x FROM t) AS s ORDER BY 1"_s,
                    u"SELECT y FROM (SELECT x y FROM (SELECT 氏名 x FROM t) AS s) AS r ORDER BY r.y"_s,
                    u"SELECT a FROM (SELECT 氏名 FROM t) AS s (a) ORDER BY a"_s,
                    u"WITH s AS (SELECT 氏名 FROM t) SELECT * FROM s ORDER BY 1"_s));

INSTANTIATE_TEST_SUITE_P(OfLoginNames, ServerStatementRefusal,
                         testing::Values(u"SELECT 1 FROM t WHERE ログインID = 'a' || 'b'"_s,
                                         u"SELECT 1 FROM t WHERE x || ログインID = 'a'"_s,
                                         u"SELECT 1 FROM t WHERE ログインID = -5"_s,
                                         u"SELECT 1 FROM t WHERE ログインID = a COLLATE b"_s));

TEST(ServerStatementRefusals, MariaDbRefusesOrdersThatCantBeMadeOutsideOfIt) {
    for (const QString& statement :
         {u"SELECT 氏名, COUNT(*) FROM t GROUP BY 氏名 ORDER BY 氏名"_s, u"SELECT a FROM t ORDER BY 氏名 LIMIT 5"_s,
          u"SELECT a FROM t ORDER BY 氏名, LENGTH(コード)"_s, u"SELECT TOP 99999999999 a FROM t ORDER BY 氏名"_s,
          u"SELECT a FROM t WHERE b IN (SELECT TOP 3 b FROM u ORDER BY 氏名)"_s,
          u"INSERT INTO u SELECT TOP 5 a FROM t ORDER BY 氏名"_s, u"DELETE FROM t ORDER BY 氏名 LIMIT 1"_s})
        EXPECT_EQ(UsageError(u"MariaDB"_s, statement), kStatementFailure) << statement.toStdString();
}

TEST(ServerStatementRefusals, PostgreSqlSortsGroupsAndInnerQueriesByTheKey) {
    EXPECT_EQ(For(u"PostgreSQL"_s, u"SELECT 氏名 AS x, COUNT(*) FROM t GROUP BY x ORDER BY x"_s).text,
              u"SELECT 氏名 AS x, COUNT(*) FROM t GROUP BY x ORDER BY suite_order(氏名) NULLS FIRST"_s);
    EXPECT_EQ(For(u"PostgreSQL"_s, u"SELECT a FROM t WHERE b IN (SELECT TOP 3 b FROM u ORDER BY 氏名)"_s).text,
              u"SELECT a FROM t WHERE b IN (SELECT b FROM u ORDER BY suite_order(氏名) NULLS FIRST LIMIT 3)"_s);
    EXPECT_EQ(For(u"PostgreSQL"_s, u"SELECT rank() OVER (ORDER BY 氏名) FROM t"_s).text,
              u"SELECT rank() OVER (ORDER BY suite_order(氏名) NULLS FIRST) FROM t"_s);
}

TEST(ServerEngines, OtherEnginesGetStatementsAsTheSuiteWritesThem) {
    for (const QString& engine : {u"Microsoft SQL Server"_s, u"Oracle"_s, u"Db2"_s, u""_s})
        EXPECT_FALSE(EngineOf(engine).adapted) << engine.toStdString();
    EXPECT_TRUE(EngineOf(u"PostgreSQL"_s).adapted);
    EXPECT_TRUE(EngineOf(u"MySQL"_s).adapted);
}
