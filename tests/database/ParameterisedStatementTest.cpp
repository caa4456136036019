#include "database/sql/ParameterisedStatement.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::StringLiterals;
using namespace database;

namespace {

struct Case {
    QString statement, lifted;
    QStringList literals;
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.statement.toStdString(); }

QStringList Literals(const ParameterisedStatement& statement) {
    QStringList literals;
    for (size_t i = 0; i < statement.LiteralCount(); ++i) literals.append(QString::fromUtf8(statement.Literal(i)));
    return literals;
}

class StatementParameters : public testing::TestWithParam<Case> {};

}  // namespace

TEST_P(StatementParameters, TakesValuesOutOfAStatement) {
    ParameterisedStatement statement;
    for (int time = 0; time < 2; ++time) {  // the second time from the cached shape
        statement.Lift(GetParam().statement);
        EXPECT_EQ(statement.Text().toStdString(), GetParam().lifted.toStdString());
        EXPECT_EQ(Literals(statement), GetParam().literals);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Statements, StatementParameters,
    testing::Values(
        Case{
            u"SELECT a FROM t WHERE b = 'x' AND c='y'"_s, u"SELECT a FROM t WHERE b = ?1 AND c=?2"_s, {u"x"_s, u"y"_s}},
        Case{u"select a from t where b = 'it''s' or b = ''''"_s,
             u"select a from t where b = ?1 or b = ?2"_s,
             {u"it's"_s, u"'"_s}},
        Case{u"SELECT a FROM t WHERE b = '' AND c = '漢𠮷'"_s,
             u"SELECT a FROM t WHERE b = ?1 AND c = ?2"_s,
             {u""_s, u"漢𠮷"_s}},
        Case{u"SELECT 'head' AS h FROM t WHERE [b'c] = 'x' AND \"d'e\" = 'y' -- 'z'"_s,
             u"SELECT 'head' AS h FROM t WHERE [b'c] = ?1 AND \"d'e\" = ?2 -- 'z'"_s,
             {u"x"_s, u"y"_s}},
        Case{u"SELECT a FROM t WHERE b = /* 'x' */ 'y' AND c = x'00'"_s,
             u"SELECT a FROM t WHERE b = /* 'x' */ ?1 AND c = x'00'"_s,
             {u"y"_s}},
        Case{u"INSERT INTO t ('a') VALUES('[b]', '%')"_s, u"INSERT INTO t ('a') VALUES(?1, ?2)"_s, {u"[b]"_s, u"%"_s}},
        Case{u"UPDATE t SET a = 'x'"_s, u"UPDATE t SET a = ?1"_s, {u"x"_s}},
        Case{u"DELETE FROM t WHERE a < 'x'"_s, u"DELETE FROM t WHERE a < ?1"_s, {u"x"_s}},
        Case{u"CREATE TABLE t (a TEXT DEFAULT 'x')"_s, u"CREATE TABLE t (a TEXT DEFAULT 'x')"_s, {}},
        Case{u"SELECT a FROM t WHERE b = 'x' AND c = ?"_s, u"SELECT a FROM t WHERE b = 'x' AND c = ?"_s, {}},
        Case{u"SELECT a FROM t WHERE b = 'x' AND c = 'y"_s, u"SELECT a FROM t WHERE b = 'x' AND c = 'y"_s, {}},
        Case{u"SELECT a FROM t WHERE b = 'x''y' 'z'"_s, u"SELECT a FROM t WHERE b = ?1 ?2"_s, {u"x'y"_s, u"z"_s}},
        Case{u"SELECT a FROM t WHERE b = 'x'5 AND c = 'y'"_s, u"SELECT a FROM t WHERE b = 'x'5 AND c = 'y'"_s, {}},
        Case{u"SELECT a FROM t WHERE b = 'x' AND c = 'y'0"_s, u"SELECT a FROM t WHERE b = 'x' AND c = 'y'0"_s, {}},
        Case{u""_s, u""_s, {}}));

TEST(LiteralLiftShapes, StatementsThatOnlyBeginAlikeAreKeptApart) {
    ParameterisedStatement statement;
    const QStringList statements = {u"SELECT a FROM t WHERE b = 'x'"_s,
                                    u"SELECT a FROM t WHERE b = 'x' AND c = 'y'"_s,
                                    u"SELECT a FROM t WHERE b = 'x' AND c = 'y"_s,
                                    u"SELECT a FROM t WHERE b = 'x' -- 'y'"_s,
                                    u"SELECT a FROM t WHERE b = 'x'' AND c = '"_s,
                                    u"SELECT a FROM t WHERE b = "_s};
    const QStringList lifted = {u"SELECT a FROM t WHERE b = ?1"_s,
                                u"SELECT a FROM t WHERE b = ?1 AND c = ?2"_s,
                                u"SELECT a FROM t WHERE b = 'x' AND c = 'y"_s,
                                u"SELECT a FROM t WHERE b = ?1 -- 'y'"_s,
                                u"SELECT a FROM t WHERE b = ?1"_s,
                                u"SELECT a FROM t WHERE b = "_s};
    for (int time = 0; time < 3; ++time) {
        for (qsizetype i = 0; i < statements.size(); ++i) {
            statement.Lift(statements[i]);
            EXPECT_EQ(statement.Text(), lifted[i]) << statements[i].toStdString();
        }
    }
}

TEST(LiteralLiftShapes, MoreShapesThanAreKeptStillWork) {
    ParameterisedStatement statement;
    for (int i = 0; i < 40; ++i) {
        statement.Lift(u"SELECT a%1 FROM t WHERE b = '%1'"_s.arg(i % 13));
        EXPECT_EQ(Literals(statement), QStringList({QString::number(i % 13)}));
    }
}
