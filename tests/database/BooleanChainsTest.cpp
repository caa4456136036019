#include "database/sql/Rewriters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;

namespace {

struct Case {
    QString name, condition, balanced;
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.name.toStdString(); }

QString Balanced(const QString& statement, size_t longest, size_t fanOut) {
    auto tree = ParseStatement(statement);
    if (!tree) return u"(not read)"_s;
    BalanceChains(tree->level, longest, fanOut);
    return StatementText(*tree);
}

class ChainBalance : public testing::TestWithParam<Case> {};

}  // namespace

TEST_P(ChainBalance, BracketsLongChainsAndKeepsTheirMeaning) {
    const QString head = u"SELECT x FROM t WHERE "_s;
    EXPECT_EQ(Balanced(head + GetParam().condition, 3, 2).toStdString(), (head + GetParam().balanced).toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Chains, ChainBalance,
    testing::Values(
        Case{u"three stay"_s, u"a = 1 OR b = 2 OR c = 3"_s, u"a = 1 OR b = 2 OR c = 3"_s},
        Case{u"four"_s, u"a = 1 OR b = 2 OR c = 3 OR d = 4"_s, u"(a = 1 OR b = 2) OR (c = 3 OR d = 4)"_s},
        Case{u"an odd one stands alone"_s, u"a OR b OR c OR d OR e"_s, u"((a OR b) OR (c OR d)) OR e"_s},
        Case{u"and"_s, u"a and b and c and d"_s, u"(a and b) and (c and d)"_s},
        Case{u"AND binds before OR"_s, u"a OR b AND c OR d OR e"_s, u"(a OR b AND c) OR (d OR e)"_s},
        Case{u"an AND chain inside an OR chain"_s, u"x OR a AND b AND c AND d"_s, u"x OR (a AND b) AND (c AND d)"_s},
        Case{u"BETWEEN is no chain"_s, u"a BETWEEN 1 AND 2 AND b AND c"_s, u"a BETWEEN 1 AND 2 AND b AND c"_s},
        Case{u"BETWEEN as a term"_s, u"a BETWEEN 1 AND 2 AND b AND c AND NOT d"_s,
             u"(a BETWEEN 1 AND 2 AND b) AND (c AND NOT d)"_s},
        Case{u"CASE is no chain"_s, u"CASE WHEN a AND b AND c AND d THEN 1 END = 1"_s,
             u"CASE WHEN a AND b AND c AND d THEN 1 END = 1"_s},
        Case{u"it ends at ORDER BY"_s, u"a OR b OR c OR d ORDER BY e, f"_s, u"(a OR b) OR (c OR d) ORDER BY e, f"_s},
        Case{u"a missing term is left to the engine"_s, u"a OR OR b OR c OR d"_s, u"a OR OR b OR c OR d"_s},
        Case{u"a bracket inside is one term"_s, u"(a OR b OR c OR d) AND e"_s, u"(a OR b OR c OR d) AND e"_s}));

TEST(ChainBalanceJoins, ConditionsOfJoinsAreApart) {
    EXPECT_EQ(
        Balanced(u"SELECT 1 FROM a INNER JOIN b ON p AND q LEFT JOIN c ON r AND s AND t AND u WHERE v AND w"_s, 3, 2),
        u"SELECT 1 FROM a INNER JOIN b ON p AND q LEFT JOIN c ON (r AND s) AND (t AND u) WHERE v AND w"_s);
}
