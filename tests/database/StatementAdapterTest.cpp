#include "database/sql/StatementAdapter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;

namespace {

struct Case {
    QString name, statement, adapted;
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.name.toStdString(); }

const SqlDialect kEngine = {.topIsLimit = true,
                            .flattenRightJoins = true,
                            .bracketQuotedNames = true,
                            .longestChain = 4,
                            .textCollation = u"FOLDED"_s,
                            .caseBlindCollation = u"NOCASE"_s};
const TextRules kRules = {{u"氏名"_s, u"カナ"_s, u"郵便番号"_s}, {u"ログインID"_s}};

QString Adapted(const QString& statement) { return AdaptStatement(statement, kEngine, kRules); }

class StatementAdapter : public testing::TestWithParam<Case> {};

}  // namespace

TEST_P(StatementAdapter, RewritesWhatTheEngineWritesOtherwise) {
    EXPECT_EQ(Adapted(GetParam().statement).toStdString(), GetParam().adapted.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Top, StatementAdapter,
    testing::Values(
        Case{u"the limit stands at the end"_s,
             u"SELECT TOP 1 * FROM K年号区分 WHERE 開始日付 <= '19650403' ORDER BY 開始日付 DESC"_s,
             u"SELECT * FROM K年号区分 WHERE 開始日付 <= '19650403' ORDER BY 開始日付 DESC LIMIT 1"_s},
        Case{u"behind DISTINCT"_s, u"select distinct top 20 a from t"_s, u"select distinct a from t LIMIT 20"_s},
        Case{u"inside its own brackets"_s,
             u"SELECT a FROM t WHERE b IN (SELECT TOP 3 b FROM u ORDER BY b) AND c = 'x'"_s,
             u"SELECT a FROM t WHERE b IN (SELECT b FROM u ORDER BY b LIMIT 3) AND c = 'x'"_s},
        Case{u"before a semicolon"_s, u"SELECT TOP 1000 a FROM t ;"_s, u"SELECT a FROM t LIMIT 1000 ;"_s},
        Case{u"before a closing comment"_s, u"SELECT TOP 2 a FROM t -- top"_s, u"SELECT a FROM t LIMIT 2 -- top"_s},
        Case{u"in an INSERT"_s, u"INSERT INTO u SELECT TOP 5 a FROM t"_s, u"INSERT INTO u SELECT a FROM t LIMIT 5"_s},
        Case{u"a share is not known"_s, u"SELECT TOP 5 PERCENT a FROM t"_s, u"SELECT TOP 5 PERCENT a FROM t"_s},
        Case{u"one part of a UNION can't be limited"_s, u"SELECT TOP 5 a FROM t UNION SELECT a FROM u"_s,
             u"SELECT TOP 5 a FROM t UNION SELECT a FROM u"_s},
        Case{u"a column of that name"_s, u"SELECT t.TOP FROM t"_s, u"SELECT t.TOP FROM t"_s},
        Case{u"inside a literal"_s, u"SELECT a FROM t WHERE b = 'SELECT TOP 1 x'"_s,
             u"SELECT a FROM t WHERE b = 'SELECT TOP 1 x'"_s}));

INSTANTIATE_TEST_SUITE_P(
    Brackets, StatementAdapter,
    testing::Values(
        Case{u"table and column"_s,
             u"SELECT [T閲覧].[閲覧日付],[T閲覧].[閲覧時刻] FROM [T閲覧] WHERE [T閲覧].[伝票No] = ''"_s,
             u"SELECT \"T閲覧\".\"閲覧日付\",\"T閲覧\".\"閲覧時刻\" FROM \"T閲覧\" WHERE \"T閲覧\".\"伝票No\" = ''"_s},
        Case{u"a list inside a literal is no name"_s, u"SELECT [a] FROM t WHERE [a] LIKE '%[ab]%'"_s,
             u"SELECT \"a\" FROM t WHERE \"a\" LIKE '%[ab]%'"_s},
        Case{u"behind a doubled quote too"_s, u"SELECT a FROM t WHERE a = 'it''s [b]' AND [c] = 1"_s,
             u"SELECT a FROM t WHERE a = 'it''s [b]' AND \"c\" = 1"_s},
        Case{u"quotes inside are doubled"_s, u"SELECT [a\"b] FROM t"_s, u"SELECT \"a\"\"b\" FROM t"_s},
        Case{u"nor in a comment"_s, u"SELECT a /* [b] */ FROM [t]"_s, u"SELECT a /* [b] */ FROM \"t\""_s},
        Case{u"nor in double quotes"_s, u"SELECT \"[b]\" FROM [t]"_s, u"SELECT \"[b]\" FROM \"t\""_s},
        Case{u"insert"_s, u"INSERT INTO [t] ([a],[b]) VALUES('[x]','y')"_s,
             u"INSERT INTO \"t\" (\"a\",\"b\") VALUES('[x]','y')"_s},
        Case{u"not closed: as it is"_s, u"SELECT [a FROM t"_s, u"SELECT [a FROM t"_s}));

INSTANTIATE_TEST_SUITE_P(
    Joins, StatementAdapter,
    testing::Values(
        Case{u"one"_s, u"SELECT a.x FROM A RIGHT JOIN X ON A.c = X.c WHERE X.d = 1"_s,
             u"SELECT a.x FROM X LEFT JOIN A ON A.c = X.c WHERE X.d = 1"_s},
        Case{u"outer is kept"_s, u"SELECT a.x FROM A right outer join X ON A.c = X.c"_s,
             u"SELECT a.x FROM X LEFT outer join A ON A.c = X.c"_s},
        Case{
            u"nested, innermost first"_s,
            u"SELECT 1 FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者 ON M事業所.コード = M担当者.事業所コード) ON M部門.コード = M担当者.部門コード) ON Mセクション.コード = M担当者.セクションコード WHERE x"_s,
            u"SELECT 1 FROM ((M担当者 LEFT JOIN M事業所 ON M事業所.コード = M担当者.事業所コード) LEFT JOIN M部門 ON M部門.コード = M担当者.部門コード) LEFT JOIN Mセクション ON Mセクション.コード = M担当者.セクションコード WHERE x"_s},
        Case{
            u"the staff statement keeps its inner joins"_s,
            u"SELECT M担当者.*, M役職.名称 as 役職名 FROM K社員区分 INNER JOIN (K在籍区分 INNER JOIN (M役職 RIGHT JOIN (M事業所 RIGHT JOIN M担当者 ON M事業所.コード = M担当者.事業所コード ) ON M役職.コード = M担当者.役職コード) ON K在籍区分.区分 = M担当者.在籍区分) ON K社員区分.区分 = M担当者.社員区分  WHERE M担当者.コード <> ''"_s,
            u"SELECT M担当者.*, M役職.名称 as 役職名 FROM K社員区分 INNER JOIN (K在籍区分 INNER JOIN ((M担当者 LEFT JOIN M事業所 ON M事業所.コード = M担当者.事業所コード ) LEFT JOIN M役職 ON M役職.コード = M担当者.役職コード) ON K在籍区分.区分 = M担当者.在籍区分) ON K社員区分.区分 = M担当者.社員区分  WHERE M担当者.コード <> ''"_s},
        Case{u"a chain on the left gets brackets"_s, u"SELECT 1 FROM A INNER JOIN B ON p RIGHT JOIN C ON q"_s,
             u"SELECT 1 FROM C LEFT JOIN (A INNER JOIN B ON p) ON q"_s},
        Case{u"aliases go with their tables"_s, u"SELECT 1 FROM A AS x RIGHT JOIN [B] y ON x.c = y.c"_s,
             u"SELECT 1 FROM \"B\" y LEFT JOIN A AS x ON x.c = y.c"_s},
        Case{u"inside a subquery"_s, u"SELECT 1 FROM (SELECT A.c FROM A RIGHT JOIN B ON p) AS s"_s,
             u"SELECT 1 FROM (SELECT A.c FROM B LEFT JOIN A ON p) AS s"_s},
        Case{u"a bare star shows the order of the tables"_s, u"SELECT * FROM A RIGHT JOIN B ON p"_s,
             u"SELECT * FROM A RIGHT JOIN B ON p"_s},
        Case{u"also behind other columns"_s, u"SELECT x, * FROM A RIGHT JOIN B ON p"_s,
             u"SELECT x, * FROM A RIGHT JOIN B ON p"_s},
        Case{u"a count shows none"_s, u"SELECT COUNT(*) FROM A RIGHT JOIN B ON p"_s,
             u"SELECT COUNT(*) FROM B LEFT JOIN A ON p"_s},
        Case{u"left joins stay"_s, u"SELECT 1 FROM A LEFT JOIN B ON p"_s, u"SELECT 1 FROM A LEFT JOIN B ON p"_s},
        Case{u"a list of tables is not read"_s, u"SELECT 1 FROM C, A RIGHT JOIN B ON p"_s,
             u"SELECT 1 FROM C, A RIGHT JOIN B ON p"_s},
        Case{u"conditions behind each other are not read"_s, u"SELECT 1 FROM A RIGHT JOIN B RIGHT JOIN C ON p ON q"_s,
             u"SELECT 1 FROM A RIGHT JOIN B RIGHT JOIN C ON p ON q"_s}));

INSTANTIATE_TEST_SUITE_P(
    Collations, StatementAdapter,
    testing::Values(
        Case{u"order by a name"_s, u"SELECT 1 FROM M担当者 ORDER BY M担当者.氏名"_s,
             u"SELECT 1 FROM M担当者 ORDER BY M担当者.氏名 COLLATE FOLDED"_s},
        Case{u"direction and further columns"_s, u"SELECT 1 FROM t ORDER BY [t].[郵便番号] DESC, コード, カナ asc"_s,
             u"SELECT 1 FROM t ORDER BY \"t\".\"郵便番号\" COLLATE FOLDED DESC, コード, カナ COLLATE FOLDED asc"_s},
        Case{u"codes are sorted exactly"_s, u"SELECT 1 FROM t ORDER BY 事業所コード, コード"_s,
             u"SELECT 1 FROM t ORDER BY 事業所コード, コード"_s},
        Case{u"with a limit behind it"_s, u"SELECT TOP 1000 コード FROM t ORDER BY 氏名"_s,
             u"SELECT コード FROM t ORDER BY 氏名 COLLATE FOLDED LIMIT 1000"_s},
        Case{u"an expression is left alone"_s, u"SELECT 1 FROM t ORDER BY 氏名 || カナ"_s,
             u"SELECT 1 FROM t ORDER BY 氏名 || カナ"_s},
        Case{u"one given a collation too"_s, u"SELECT 1 FROM t ORDER BY 氏名 COLLATE BINARY"_s,
             u"SELECT 1 FROM t ORDER BY 氏名 COLLATE BINARY"_s},
        Case{u"conditions are exact"_s, u"SELECT 1 FROM t WHERE 氏名 = 'a' AND 氏名 >= 'b'"_s,
             u"SELECT 1 FROM t WHERE 氏名 = 'a' AND 氏名 >= 'b'"_s},
        Case{u"login names without case"_s, u"SELECT 1 FROM t WHERE [t].[ログインID] = 'a' OR (ログインID='b')"_s,
             u"SELECT 1 FROM t WHERE \"t\".\"ログインID\" COLLATE NOCASE = 'a' OR (ログインID COLLATE NOCASE='b')"_s},
        Case{u"on the right side"_s, u"SELECT 1 FROM t INNER JOIN u ON u.a = t.ログインID"_s,
             u"SELECT 1 FROM t INNER JOIN u ON u.a = t.ログインID COLLATE NOCASE"_s},
        Case{u"not where it assigns"_s, u"UPDATE t SET ログインID = 'x' WHERE ログインID = 'y'"_s,
             u"UPDATE t SET ログインID = 'x' WHERE ログインID COLLATE NOCASE = 'y'"_s},
        Case{u"not in other comparisons"_s, u"SELECT ログインID = 'a' FROM t WHERE ログインID <> 'y'"_s,
             u"SELECT ログインID = 'a' FROM t WHERE ログインID <> 'y'"_s}));

INSTANTIATE_TEST_SUITE_P(Chains, StatementAdapter,
                         testing::Values(Case{u"up to the bound they stay"_s,
                                              u"SELECT 1 FROM t WHERE a OR b OR c OR d"_s,
                                              u"SELECT 1 FROM t WHERE a OR b OR c OR d"_s}));

INSTANTIATE_TEST_SUITE_P(
    Others, StatementAdapter,
    testing::Values(Case{u"definitions pass"_s, u"CREATE TABLE [t] ([a] TEXT)"_s, u"CREATE TABLE [t] ([a] TEXT)"_s},
                    Case{u"a missing AND passes"_s, u"SELECT 1 FROM t WHERE a <> ''t.電話 LIKE '%1%'"_s,
                         u"SELECT 1 FROM t WHERE a <> ''t.電話 LIKE '%1%'"_s},
                    Case{u"unmatched brackets pass"_s, u"SELECT TOP 1 a FROM t WHERE (a = 'x'"_s,
                         u"SELECT TOP 1 a FROM t WHERE (a = 'x'"_s},
                    Case{u"an open literal passes"_s, u"SELECT TOP 1 a FROM t WHERE a = 'x"_s,
                         u"SELECT TOP 1 a FROM t WHERE a = 'x"_s},
                    Case{u"two statements pass"_s, u"SELECT TOP 1 a FROM t; SELECT 1"_s,
                         u"SELECT TOP 1 a FROM t; SELECT 1"_s},
                    Case{u"outer joins by a sign pass"_s, u"SELECT 1 FROM a,b WHERE a.c(+) = b.c"_s,
                         u"SELECT 1 FROM a,b WHERE a.c(+) = b.c"_s},
                    Case{u"nothing passes"_s, u"  "_s, u"  "_s}));

TEST(StatementAdapterLimits, BracketsTenThousandDeepPassUntouched) {
    const QString deep = u"SELECT [a] FROM t WHERE "_s + QString(10000, u'(') + u"1"_s + QString(10000, u')');
    EXPECT_TRUE(Adapted(deep) == deep);
}
