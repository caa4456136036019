#include "selection/ConditionStrings.h"

#include <gtest/gtest.h>

#include <QList>

using namespace Qt::StringLiterals;

namespace {

struct Extraction {
    QString condition, value, rest;
};

/// Expected values for the column A.x; "(kept)" is the previous content of `rest`.
const QList<Extraction>& Extractions() {
    static const QList<Extraction> rows = {
        // every operator as the only term
        {u"A.x >= '1'"_s, u"1"_s, u""_s},
        {u"A.x <= '1'"_s, u"1"_s, u""_s},
        {u"A.x = '1'"_s, u"1"_s, u""_s},
        {u"A.x > '1'"_s, u"1"_s, u""_s},
        {u"A.x < '1'"_s, u"1"_s, u""_s},
        {u"A.x LIKE '%1%'"_s, u"1"_s, u""_s},
        // before another term
        {u"A.x >= '1' AND B.y = '2'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"A.x >= '1' OR B.y = '2'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"A.x <= '1' AND B.y = '2'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"A.x <= '1' OR B.y = '2'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"A.x = '1' AND B.y = '2'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"A.x = '1' OR B.y = '2'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"A.x > '1' AND B.y = '2'"_s, u"1"_s, u" AND B.y = '2'"_s},
        {u"A.x < '1' OR B.y = '2'"_s, u"1"_s, u" OR B.y = '2'"_s},
        {u"A.x LIKE '1%' AND B.y = '2'"_s, u"1"_s, u" AND B.y = '2'"_s},
        // after another term
        {u"B.y = '2' AND A.x >= '1'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"B.y = '2' OR A.x >= '1'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"B.y = '2' AND A.x <= '1'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"B.y = '2' OR A.x <= '1'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"B.y = '1' AND A.x = '2'"_s, u"2"_s, u"B.y = '1'"_s},
        {u"B.y = '2' OR A.x = '1'"_s, u"1"_s, u"B.y = '2'"_s},
        {u"B.y = '2' AND A.x > '1'"_s, u"1"_s, u""_s},
        {u"B.y = '2' AND A.x < '1'"_s, u"1"_s, u""_s},
        {u"B.y = '1' AND A.x LIKE '%ab%'"_s, u"ab"_s, u""_s},
        // between two terms
        {u"B.y = '2' AND A.x >= '1' AND C.z = '3'"_s, u"1"_s, u"B.y = '2' AND C.z = '3'"_s},
        {u"B.y = '2' OR A.x = '1' OR C.z = '3'"_s, u"1"_s, u"B.y = '2' OR C.z = '3'"_s},
        {u"B.y = '2' AND A.x LIKE '1' AND C.z = '3'"_s, u"1"_s, u" AND C.z = '3'"_s},
        {u"B.y = '2' OR A.x >= '1' AND C.z = '3'"_s, u"1"_s, u"B.y = '2' OR A.x >= '1' AND C.z = '3'"_s},
        // after WHERE
        {u" WHERE A.x >= '1' AND B.y = '2'"_s, u"1"_s, u" WHERE B.y = '2'"_s},
        {u" WHERE A.x >= '1' OR B.y = '2'"_s, u"1"_s, u" WHERE B.y = '2'"_s},
        {u" WHERE A.x >= '1'"_s, u"1"_s, u" WHERE "_s},
        {u" WHERE A.x <= '1' AND B.y = '2'"_s, u"1"_s, u" WHERE B.y = '2'"_s},
        {u" WHERE A.x = '1' AND B.y = '2'"_s, u"1"_s, u"B.y = '2'"_s},
        {u" WHERE A.x > '1' AND B.y = '2'"_s, u"1"_s, u" AND B.y = '2'"_s},
        {u" WHERE B.y = '2' AND A.x >= '1'"_s, u"1"_s, u" WHERE B.y = '2'"_s},
        {u" WHERE B.y = '2' OR A.x >= '1'"_s, u"1"_s, u" WHERE B.y = '2'"_s},
        {u"SELECT WHERE A.x >= '1' AND B.y = '2'"_s, u"1"_s, u"SELECT WHERE B.y = '2'"_s},
        {u"B.y = '2' AND A.x >= '1' WHERE C.z = '3'"_s, u"1"_s, u"B.y = '2' AND  WHERE C.z = '3'"_s},
        // anchors at 1 to 8
        {u"(A.x >= '1')"_s, u"1"_s, u")"_s},
        {u"(A.x >= '1' AND B.y = '2')"_s, u"1"_s, u" AND B.y = '2')"_s},
        {u"((A.x >= '1'))"_s, u"1"_s, u"))"_s},
        {u"(((A.x >= '1')))"_s, u"1"_s, u")))"_s},
        {u" OR A.x >= '1'"_s, u"1"_s, u""_s},
        {u"((((A.x >= '1'))))"_s, u"1"_s, u"))))"_s},
        {u" AND A.x >= '1'"_s, u"1"_s, u""_s},
        {u" AND A.x <= '1' AND B.y = '2'"_s, u"1"_s, u" AND B.y = '2'"_s},
        {u"(((((A.x >= '1' OR B.y = '2')))))"_s, u"1"_s, u"(((((A.x >= '1' OR B.y = '2')))))"_s},
        {u"((((A.x >= '1' OR B.y = '2'))))"_s, u"1"_s, u"((((A.x >= '1' OR B.y = '2'))))"_s},
        {u" AND (A.x >= '1')"_s, u"1"_s, u")"_s},
        {u" OR (A.x = '1') OR B.y = '2'"_s, u"1"_s, u" OR (A.x = '1')) OR B.y = '2'"_s},
        {u"((((((A.x >= '1'))))))"_s, u"1"_s, u"))))))"_s},
        // brackets
        {u"B.y = '2' AND (A.x >= '1')"_s, u"1"_s, u")"_s},
        {u"B.y = '2' AND (A.x >= '1' OR A.x <= '5') AND C.z = '3'"_s, u"1"_s,
         u"B.y = '2' AND (A.x >= '1' OR A.x <= '5') OR A.x <= '5') AND C.z = '3'"_s},
        {u"B.y = '2' OR (A.x = '1')"_s, u"1"_s, u")"_s},
        {u"B.y = '2' AND (A.x >= '1'"_s, u"1"_s, u""_s},
        {u"(B.y = '2') AND A.x >= '1'"_s, u"1"_s, u"(B.y = '2')"_s},
        {u"B.y = '2' AND A.x >= '1' AND (C.z = '3')"_s, u"1"_s, u"B.y = '2' AND (C.z = '3')"_s},
        // two terms of the column
        {u"A.x LIKE '2' AND A.x >= '1'"_s, u"1"_s, u"A.x LIKE '2'"_s},
        {u"A.x >= '1' AND A.x LIKE '2'"_s, u"1"_s, u"A.x LIKE '2'"_s},
        {u"A.x = '3' AND A.x >= '1'"_s, u"1"_s, u"A.x = '3'"_s},
        {u"A.x > '7' AND A.x <= '1'"_s, u"1"_s, u"A.x > '7'"_s},
        // without a closing quote
        {u"A.x >= '1"_s, u""_s, u"A.x >= '1"_s},
        {u"B.y = '2' AND A.x >= '1"_s, u""_s, u"B.y = '2'B.y = '2' AND A.x >= '1"_s},
        {u" WHERE A.x >= '1"_s, u""_s, u" WHERE  WHERE A.x >= '1"_s},
        {u"A.x LIKE '1"_s, u""_s, u"A.x LIKE '1"_s},
        // without a term
        {u"A.x IS NULL"_s, u""_s, u"(kept)"_s},
        {u"B.y = '2'"_s, u""_s, u"(kept)"_s},
        {u"A.x>='1'"_s, u""_s, u"(kept)"_s},
        {u""_s, u""_s, u"(kept)"_s},
        {u"A.xx >= '1'"_s, u""_s, u"(kept)"_s},
        // letter case, empty values, a longer column name, a bracket in the value
        {u"a.X >= 'q' and b.y = '2'"_s, u"q"_s, u"b.y = '2'"_s},
        {u"B.y = '2' and a.X like '%q%'"_s, u"q"_s, u""_s},
        {u"A.x >= '' AND B.y = '2'"_s, u""_s, u"B.y = '2'"_s},
        {u"A.x LIKE '%'"_s, u""_s, u""_s},
        {u"BA.x >= '1'"_s, u"1"_s, u""_s},
        {u"B.y = '2' AND A.x >= '(1' OR C.z = '3') AND D.w = '4'"_s, u"(1"_s, u"B.y = '2' AND D.w = '4'"_s},
        {u" WHERE (A.x >= '1' AND B.y = '2')"_s, u"1"_s, u" WHERE (A.x >= '1' AND B.y = '2')"_s},
    };
    return rows;
}

}  // namespace

TEST(ExtractConditionTest, TakesValueAndLeavesRestAsWorkedOutByHand) {
    for (const Extraction& row : Extractions()) {
        QString rest = u"(kept)"_s;
        EXPECT_EQ(ExtractCondition(u"A.x"_s, row.condition, rest), row.value) << row.condition.toStdString();
        EXPECT_EQ(rest, row.rest) << row.condition.toStdString();
    }
}

TEST(ExtractConditionTest, ReadsAndWritesTheSameText) {
    QString condition = u"M担当者.コード >= '00123' AND M担当者.部門コード = '001'"_s;
    EXPECT_EQ(ExtractCondition(u"M担当者.コード"_s, condition, condition), u"00123"_s);
    EXPECT_EQ(condition, u"M担当者.部門コード = '001'"_s);
    EXPECT_EQ(ExtractCondition(u"M担当者.部門コード"_s, condition, condition), u"001"_s);
    EXPECT_EQ(condition, QString());
}

TEST(ExtractConditionTest, ColumnWithoutAnOperatorHasNoTerm) {
    QString condition = u"M担当者.コード IS NOT NULL"_s;
    EXPECT_EQ(ExtractCondition(u"M担当者.コード"_s, condition, condition), QString());
    EXPECT_EQ(condition, u"M担当者.コード IS NOT NULL"_s);
}

TEST(ExtractConditionTest, TermsInFrontOfLikeGreaterAndLessAreLostWithThem) {
    for (const QString& term : {u"A.x LIKE '%9%'"_s, u"A.x > '9'"_s, u"A.x < '9'"_s}) {
        QString condition = u"B.y = '1' AND C.z = '2' OR "_s + term + u" AND D.w = '3'"_s;
        EXPECT_EQ(ExtractCondition(u"A.x"_s, condition, condition), u"9"_s);
        EXPECT_EQ(condition, u" AND D.w = '3'"_s) << term.toStdString();
    }
}

TEST(ExtractConditionTest, TextWithoutMeaningIsLeftAlone) {
    for (const QString& text : {u"'"_s, u"A.x"_s, u"A.x >= "_s, u"(((("_s, u" WHERE "_s, QString(5000, u'\'')}) {
        QString condition = text;
        EXPECT_EQ(ExtractCondition(u"A.x"_s, condition, condition), QString());
        EXPECT_EQ(condition, text);
    }
}

TEST(RemovePercentTest, LeavesOutEveryPercentSign) {
    EXPECT_EQ(RemovePercent(u"%山%田%%"_s), u"山田"_s);
    EXPECT_EQ(RemovePercent(u"_[*]％"_s), u"_[*]％"_s);
    EXPECT_EQ(RemovePercent(QString()), QString());
}
