#include "selection/StaffListQuery.h"

#include <gtest/gtest.h>

#include "globals/ProgramGlobals.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

const QString kSelect =
    u"SELECT TOP 1000 M担当者.コード,M担当者.氏名,M事業所.名称 AS 事業所名,M部門.名称 AS 部門名,Mセクション.名称 AS セクション名"_s;
const QString kJoins =
    u" FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者 ON M事業所.コード = M担当者.事業所コード) ON M部門.コード = M担当者.部門コード) ON Mセクション.コード = M担当者.セクションコード"_s;
const QString kCommas =
    u" FROM Mセクション,M部門,M事業所,M担当者 WHERE M事業所.コード(+) = M担当者.事業所コード AND M部門.コード(+) = M担当者.部門コード AND Mセクション.コード(+) = M担当者.セクションコード"_s;

}  // namespace

class StaffListQueryTest : public ::testing::Test {
  protected:
    StaffListQueryTest() {
        Globals().GeneralDatabase.db = u"A"_s;
        Globals().Environment.OperatingOfficeCode = Globals().ScopeOfficeCode = u"000"_s;
        conditions.allEnrolments = 2;
        conditions.allEmployees = conditions.employeeClass = 6;
    }

    /// All items filled, both classes restricted, a remaining ListCondition and an office.
    void FillEverything() {
        conditions.code = u"00123"_s;
        conditions.name = u" 山田 "_s;
        conditions.kana = u"ﾔﾏ"_s;
        conditions.departmentCode = u"010"_s;
        conditions.sectionCode = u"011"_s;
        conditions.enrolmentClass = 1;
        conditions.employeeClass = 3;
        Globals().ListCondition = u"M担当者.コード >= '00005'"_s;
        Globals().Environment.OperatingOfficeCode = u"001"_s;
        Globals().ScopeOfficeCode = u"002"_s;
    }

    TestServices services;
    StaffListConditions conditions;
};

TEST_F(StaffListQueryTest, HeadFollowsTheDialect) {
    const QList<std::pair<QString, QString>> heads = {
        {u"A"_s, kSelect + kJoins}, {u"S"_s, kSelect + kJoins}, {u"O"_s, kSelect + kCommas},
        {u"A "_s, kSelect},         {u"a"_s, kSelect},          {QString(), kSelect},
    };
    for (const auto& [dialect, head] : heads) {
        Globals().GeneralDatabase.db = dialect;
        EXPECT_EQ(BuildListQueryHead(), head) << dialect.toStdString();
    }
}

TEST_F(StaffListQueryTest, EverySearchAppendsItsTerms) {
    FillEverything();
    const QString common =
        u"(M担当者.コード >= '00005') AND (M担当者.事業所コード = '002' OR M担当者.事業所コード = '000')"_s;
    const QString classes = u" AND M担当者.在籍区分 = '1' AND M担当者.社員区分 = '3'"_s;
    struct Search {
        int kind;
        QString terms, order;
    };
    const QList<Search> searches = {
        {kCodeSearch, u" AND M担当者.コード >= '00123'"_s + classes, u" ORDER BY M担当者.コード"_s},
        {kKanaSearch, u" AND M担当者.カナ LIKE '%ﾔﾏ%'"_s + classes, u" ORDER BY M担当者.カナ"_s},
        {kNameSearch, u" AND M担当者.氏名 LIKE '%山田%'"_s + classes, u" ORDER BY M担当者.氏名"_s},
        {kDepartmentSearch, u" AND M担当者.部門コード = '010'"_s + classes, u" ORDER BY M担当者.コード"_s},
        {kSectionSearch, u" AND M担当者.セクションコード = '011'"_s + classes, u" ORDER BY M担当者.コード"_s},
        {kCompositeSearch,
         u" AND M担当者.コード >= '00123' AND M担当者.氏名 LIKE '%山田%' AND M担当者.カナ LIKE '%ﾔﾏ%'"_s
         u" AND M担当者.部門コード = '010' AND M担当者.セクションコード = '011'"_s +
             classes,
         u" ORDER BY M担当者.コード"_s},
        {kNegativeSearch,
         u" AND M担当者.コード < '00123' AND M担当者.氏名 NOT LIKE '%山田%' AND M担当者.カナ NOT LIKE '%ﾔﾏ%'"_s
         u" AND M担当者.部門コード <> '010' AND M担当者.セクションコード <> '011'"_s
         u" AND M担当者.在籍区分 <> '1' AND M担当者.社員区分 <> '3'"_s,
         u" ORDER BY M担当者.コード"_s},
    };
    const QList<std::pair<QString, QString>> dialects = {{u"A"_s, kSelect + kJoins + u" WHERE "_s},
                                                         {u"S"_s, kSelect + kJoins + u" WHERE "_s},
                                                         {u"O"_s, kSelect + kCommas + u" AND "_s},
                                                         {u"X"_s, kSelect + u" WHERE "_s}};
    for (const auto& [dialect, beginning] : dialects) {
        Globals().GeneralDatabase.db = dialect;
        for (const Search& search : searches)
            EXPECT_EQ(BuildStaffListQuery(search.kind, conditions), beginning + common + search.terms + search.order)
                << dialect.toStdString() << search.kind;
    }
}

TEST_F(StaffListQueryTest, EmptyItemsAddNoTerm) {
    const QString byCode = kSelect + kJoins + u" WHERE M担当者.在籍区分 = '0' ORDER BY M担当者.コード"_s;
    conditions.name = u"  "_s;
    conditions.kana = u" "_s;
    EXPECT_EQ(BuildCompositeQuery(conditions), byCode);
    EXPECT_EQ(BuildDepartmentQuery(conditions), byCode);
    EXPECT_EQ(BuildSectionQuery(conditions), byCode);
    EXPECT_EQ(BuildCodeQuery(conditions), byCode);
    EXPECT_EQ(BuildNameQuery(conditions), kSelect + kJoins + u" WHERE M担当者.在籍区分 = '0' ORDER BY M担当者.氏名"_s);
    EXPECT_EQ(BuildKanaQuery(conditions), kSelect + kJoins + u" WHERE M担当者.在籍区分 = '0' ORDER BY M担当者.カナ"_s);
}

TEST_F(StaffListQueryTest, AllInEnrolmentDropsItsTerm) {
    conditions.enrolmentClass = conditions.allEnrolments;
    EXPECT_EQ(BuildCompositeQuery(conditions), kSelect + kJoins + u" ORDER BY M担当者.コード"_s);
}

TEST_F(StaffListQueryTest, DialectOOpensItsFirstTermWithAnd) {
    Globals().GeneralDatabase.db = u"O"_s;
    EXPECT_EQ(BuildCompositeQuery(conditions),
              kSelect + kCommas + u" AND M担当者.在籍区分 = '0' ORDER BY M担当者.コード"_s);
}

TEST_F(StaffListQueryTest, NegationAsksForCodesBelowAndNegatesTheDefaultEnrolment) {
    conditions.code = u"00100"_s;
    EXPECT_EQ(
        BuildNegativeQuery(conditions),
        kSelect + kJoins + u" WHERE M担当者.コード < '00100' AND M担当者.在籍区分 <> '0' ORDER BY M担当者.コード"_s);
}

TEST_F(StaffListQueryTest, OperatingOfficeDecidesIfTheScopeOfficeFilters) {
    const QString onPayroll = u"M担当者.在籍区分 = '0' ORDER BY M担当者.コード"_s;
    Globals().ScopeOfficeCode = u"003"_s;
    EXPECT_EQ(BuildCompositeQuery(conditions), kSelect + kJoins + u" WHERE "_s + onPayroll);
    Globals().ScopeOfficeCode = u"000"_s;
    for (const QString& operating : {u"001"_s, QString()}) {
        Globals().Environment.OperatingOfficeCode = operating;
        EXPECT_EQ(BuildCompositeQuery(conditions),
                  kSelect + kJoins + u" WHERE (M担当者.事業所コード = '000' OR M担当者.事業所コード = '000') AND "_s +
                      onPayroll)
            << operating.toStdString();
    }
}

TEST_F(StaffListQueryTest, OperatingOfficeInScopeStillFilters) {
    Globals().Environment.OperatingOfficeCode = Globals().ScopeOfficeCode = u"001"_s;
    EXPECT_EQ(BuildCompositeQuery(conditions),
              kSelect + kJoins +
                  u" WHERE (M担当者.事業所コード = '001' OR M担当者.事業所コード = '000')"
                  u" AND M担当者.在籍区分 = '0' ORDER BY M担当者.コード"_s);
}

TEST_F(StaffListQueryTest, EscapesQuotesButNotWildcards) {
    conditions.name = u"  O'Brien_%  "_s;
    conditions.kana = u" ｵ'[ﾌﾞ]%  "_s;
    EXPECT_EQ(BuildNameQuery(conditions),
              kSelect + kJoins +
                  u" WHERE M担当者.氏名 LIKE '%O''Brien_%%' AND M担当者.在籍区分 = '0' ORDER BY M担当者.氏名"_s);
    EXPECT_EQ(BuildKanaQuery(conditions),
              kSelect + kJoins +
                  u" WHERE M担当者.カナ LIKE '% ｵ''[ﾌﾞ]%%' AND M担当者.在籍区分 = '0' ORDER BY M担当者.カナ"_s);
}

TEST_F(StaffListQueryTest, RemainingConditionGoesInWholeUnlessItIsBlank) {
    conditions.enrolmentClass = conditions.allEnrolments;
    Globals().ListCondition = u" M担当者.コード >= '5' OR 1 = 1 "_s;
    EXPECT_EQ(BuildCodeQuery(conditions),
              kSelect + kJoins + u" WHERE ( M担当者.コード >= '5' OR 1 = 1 ) ORDER BY M担当者.コード"_s);
    Globals().ListCondition = u"   "_s;
    EXPECT_EQ(BuildCodeQuery(conditions), kSelect + kJoins + u" ORDER BY M担当者.コード"_s);
}

TEST_F(StaffListQueryTest, UnknownSearchHasNoStatement) {
    EXPECT_EQ(BuildStaffListQuery(6, conditions), QString());
    EXPECT_EQ(BuildStaffListQuery(-2, conditions), QString());
}
