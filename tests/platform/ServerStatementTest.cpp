// Statements of the suite in the words of the servers' engines.

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/database/ServerEngine.h"
#include "platform/database/StatementAdapter.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

struct Case {
    QString name, statement, postgresql, mariadb;
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.name.toStdString(); }

const TextRules kRules = {{u"氏名"_s, u"カナ"_s}, {u"ログインID"_s}};

AdaptedStatement For(const QString& engine, const QString& statement) {
    return Adapt(statement, EngineOf(engine).differences, kRules);
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
        Case{u"Nulls come first"_s, u"SELECT a FROM t ORDER BY a, t.b DESC, c ASC"_s,
             u"SELECT a FROM t ORDER BY a NULLS FIRST, t.b DESC NULLS LAST, c ASC NULLS FIRST"_s,
             u"SELECT a FROM t ORDER BY a, t.b DESC, c ASC"_s},
        Case{u"words are sorted by a key, or by whoever reads them"_s,
             u"SELECT TOP 1000 a FROM t WHERE b = '1' ORDER BY t.郵便番号, t.氏名 DESC"_s,
             u"SELECT a FROM t WHERE b = '1' ORDER BY t.郵便番号 NULLS FIRST, suite_order(t.氏名) DESC NULLS LAST"
             u" LIMIT 1000"_s,
             u"SELECT a, t.郵便番号, t.氏名 FROM t WHERE b = '1'"_s},
        Case{u"the engine itself sorts what is put together"_s, u"SELECT DISTINCT 氏名 FROM t ORDER BY 氏名"_s,
             u"SELECT DISTINCT 氏名 FROM t ORDER BY suite_order(氏名) NULLS FIRST"_s,
             u"SELECT DISTINCT 氏名 FROM t ORDER BY 氏名"_s},
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
        Case{u"a pattern that is no literal is the engine's"_s, u"SELECT a FROM t WHERE a LIKE t.b"_s,
             u"SELECT a FROM t WHERE a LIKE t.b"_s, u"SELECT a FROM t WHERE a LIKE t.b"_s},
        Case{u"login names are compared without case"_s,
             u"SELECT a FROM t WHERE t.ログインID = 'Ab' AND コード = 'Ab'"_s,
             u"SELECT a FROM t WHERE lower(t.ログインID COLLATE \"C\") = lower('Ab' COLLATE \"C\") AND コード = 'Ab'"_s,
             u"SELECT a FROM t WHERE LOWER(t.ログインID) = LOWER('Ab') AND コード = 'Ab'"_s},
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
             u"SELECT 1 FROM X RIGHT JOIN (Y RIGHT JOIN Z ON a = b) ON c = d"_s}),
    [](const auto& set) { return "No" + std::to_string(set.index); });

TEST(ServerStatementOrder, WhatMariaDbDoesNotSortIsToldWithItsLimit) {
    const AdaptedStatement adapted = For(u"MariaDB"_s, u"SELECT TOP 7 a FROM t ORDER BY b, 氏名 DESC"_s);
    ASSERT_EQ(adapted.order.size(), 2);
    EXPECT_FALSE(adapted.order[0].asText || adapted.order[0].descending);
    EXPECT_TRUE(adapted.order[1].asText && adapted.order[1].descending);
    EXPECT_EQ(adapted.limit, 7);
    EXPECT_TRUE(For(u"PostgreSQL"_s, u"SELECT TOP 7 a FROM t ORDER BY 氏名"_s).order.isEmpty());
}

TEST(ServerStatementRefusals, APatternWithAnOpenListIsAFailureOfTheStatement) {
    for (const QString& engine : {u"PostgreSQL"_s, u"MariaDB"_s}) {
        try {
            For(engine, u"SELECT a FROM t WHERE 氏名 LIKE '%[ab%'"_s);
            ADD_FAILURE() << "the pattern was taken";
        } catch (const DatabaseError& error) {
            EXPECT_EQ(error.Number(), kStatementFailure);
        }
    }
}

TEST(ServerEngines, OtherEnginesGetStatementsAsTheSuiteWritesThem) {
    for (const QString& engine : {u"Microsoft SQL Server"_s, u"Oracle"_s, u"Db2"_s, u""_s})
        EXPECT_FALSE(EngineOf(engine).adapted) << engine.toStdString();
    EXPECT_TRUE(EngineOf(u"PostgreSQL"_s).adapted);
    EXPECT_TRUE(EngineOf(u"MySQL"_s).adapted);
}
