#include "inquiry/InquiryTest.h"
#include "inquiry/StaffQuery.h"

using namespace Qt::StringLiterals;

namespace {
using Flags = ConditionFlags;

const QString kHead =
    u"SELECT M担当者.*, M事業所.名称 as 事業所名, M部門.名称 as 部門名, Mセクション.名称 as セクション名, M役職.名称 as 役職名, K性別区分.名称 as 性別区分名, K在籍区分.名称 as 在籍区分名, K社員区分.名称 as 社員区分名 FROM K社員区分 INNER JOIN (K在籍区分 INNER JOIN (K性別区分 INNER JOIN (M役職 RIGHT JOIN (Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者 ON M事業所.コード = M担当者.事業所コード ) ON M部門.コード = M担当者.部門コード ) ON Mセクション.コード = M担当者.セクションコード) ON M役職.コード = M担当者.役職コード) ON K性別区分.区分 = M担当者.性別区分) ON K在籍区分.区分 = M担当者.在籍区分) ON K社員区分.区分 = M担当者.社員区分  WHERE M担当者.コード <> ''"_s;
const QString kOnPayroll = u" AND M担当者.在籍区分 = '0'"_s;
const QString kOrder =
    u" ORDER BY M担当者.事業所コード, M担当者.部門コード, M担当者.セクションコード, M担当者.役職コード, M担当者.コード"_s;

struct StatementCase {
    const char* name;
    void (*set)(InquiryConditions&);
    QString afterHead;
};

void PrintTo(const StatementCase& statement, std::ostream* out) { *out << statement.name; }

class StaffStatement : public InquiryTest, public ::testing::WithParamInterface<StatementCase> {};

QString TextOfAllConditions() {
    return u" AND M担当者.部門コード >= '010' AND M担当者.部門コード <= '020'"
           u" AND M担当者.セクションコード >= '001' AND M担当者.セクションコード <= '002'"
           u" AND M担当者.コード >= '00001' AND M担当者.コード <= '00500'"
           u" AND M担当者.役職コード >= '10' AND M担当者.役職コード <= '20'"
           u" AND M担当者.在籍区分 = '1' AND M担当者.社員区分 = '3'"
           u" AND M担当者.氏名 LIKE '%山%' AND M担当者.カナ LIKE '%ﾔﾏ%'"
           u" AND (M担当者.住所A LIKE '%東京%' OR M担当者.住所B LIKE '%東京%' OR M担当者.住所C LIKE '%東京%')"
           u"M担当者.電話 LIKE '%03%' AND M担当者.郵便番号 LIKE '%100%'"
           u" ORDER BY M担当者.コード"_s;
}

void SetAllConditions(InquiryConditions& c) {
    c = {u"010"_s, u"020"_s, u"001"_s, u"002"_s, u"10"_s,   u"20"_s, u"00001"_s, u"00500"_s,
         u"山"_s,  u"ﾔﾏ"_s,  u"03"_s,  u"100"_s, u"東京"_s, 1,       3,          0};
}

using C = InquiryConditions;
const StatementCase kCases[] = {
    {"DefaultsHoldClassZeroOfEnrolmentAndTheOrganisationOrder", [](C&) {}, kOnPayroll + kOrder},
    {"OneChangedDepartmentEndBringsInTheDefaultStartToo", [](C& c) { c.DepartmentTo = u"500"_s; },
     u" AND M担当者.部門コード >= '000' AND M担当者.部門コード <= '500'"_s + kOnPayroll + kOrder},
    {"OneChangedDepartmentStartBringsInTheDefaultEndToo", [](C& c) { c.DepartmentFrom = u"010"_s; },
     u" AND M担当者.部門コード >= '010' AND M担当者.部門コード <= '999'"_s + kOnPayroll + kOrder},
    {"EmptyDepartmentEndCountsAsChangedAndComparesWithAnEmptyLiteral", [](C& c) { c.DepartmentTo.clear(); },
     u" AND M担当者.部門コード >= '000' AND M担当者.部門コード <= ''"_s + kOnPayroll + kOrder},
    {"SectionRange", [](C& c) { c.SectionFrom = u"003"_s, c.SectionTo = u"007"_s; },
     u" AND M担当者.セクションコード >= '003' AND M担当者.セクションコード <= '007'"_s + kOnPayroll + kOrder},
    {"StaffRangePrecedesThePositionRange", [](C& c) { c.PositionTo = u"50"_s, c.StaffFrom = u"00100"_s; },
     u" AND M担当者.コード >= '00100' AND M担当者.コード <= '99999'"
     u" AND M担当者.役職コード >= '00' AND M担当者.役職コード <= '50'"_s +
         kOnPayroll + kOrder},
    {"EmptyPositionAndStaffEndsGoInAsEmptyLiterals", [](C& c) { c.PositionTo.clear(), c.StaffTo.clear(); },
     u" AND M担当者.コード >= '00000' AND M担当者.コード <= ''"
     u" AND M担当者.役職コード >= '00' AND M担当者.役職コード <= ''"_s +
         kOnPayroll + kOrder},
    {"BoundsAreNotQuotedFurther", [](C& c) { c.StaffFrom = u"0'000"_s; },
     u" AND M担当者.コード >= '0'000' AND M担当者.コード <= '99999'"_s + kOnPayroll + kOrder},
    {"ThreeBlanksOfAStartCommandAreABound", [](C& c) { c.DepartmentFrom.clear(), c.DepartmentTo = u"   "_s; },
     u" AND M担当者.部門コード >= '' AND M担当者.部門コード <= '   '"_s + kOnPayroll + kOrder},
    {"EnrolmentBelowMaxValueIsACondition", [](C& c) { c.EnrolmentKind = 1; },
     u" AND M担当者.在籍区分 = '1'"_s + kOrder},
    {"EnrolmentAtMaxValueMeansAll", [](C& c) { c.EnrolmentKind = 2; }, kOrder},
    {"EnrolmentAboveMaxValueMeansAll", [](C& c) { c.EnrolmentKind = 9; }, kOrder},
    {"StaffClassBelowMaxValueIsACondition", [](C& c) { c.StaffClass = 3; },
     kOnPayroll + u" AND M担当者.社員区分 = '3'"_s + kOrder},
    {"StaffClassAtMaxValueMeansAll", [](C& c) { c.StaffClass = 4; }, kOnPayroll + kOrder},
    {"NameText", [](C& c) { c.SearchName = u"山田"_s; }, kOnPayroll + u" AND M担当者.氏名 LIKE '%山田%'"_s + kOrder},
    {"KanaText", [](C& c) { c.SearchKana = u"ﾔﾏﾀﾞ"_s; }, kOnPayroll + u" AND M担当者.カナ LIKE '%ﾔﾏﾀﾞ%'"_s + kOrder},
    {"AddressTextSearchesThreeColumns", [](C& c) { c.SearchAddress = u"横浜市"_s; },
     kOnPayroll +
         u" AND (M担当者.住所A LIKE '%横浜市%' OR M担当者.住所B LIKE '%横浜市%' OR M担当者.住所C LIKE '%横浜市%')"_s +
         kOrder},
    {"TelephoneTextHasNoAndInFront", [](C& c) { c.SearchPhone = u"03-"_s; },
     kOnPayroll + u"M担当者.電話 LIKE '%03-%'"_s + kOrder},
    {"PostalCodeText", [](C& c) { c.SearchZip = u"100-"_s; },
     kOnPayroll + u" AND M担当者.郵便番号 LIKE '%100-%'"_s + kOrder},
    {"QuotesAreDoubled", [](C& c) { c.SearchName = u"O'Hara''"_s; },
     kOnPayroll + u" AND M担当者.氏名 LIKE '%O''Hara''''%'"_s + kOrder},
    {"PercentUnderscoreAndBracketStayWildcards", [](C& c) { c.SearchName = u"100%_[ab]*"_s; },
     kOnPayroll + u" AND M担当者.氏名 LIKE '%100%_[ab]*%'"_s + kOrder},
    {"BlanksAloneAreNoCondition",
     [](C& c) { c.SearchName = c.SearchKana = c.SearchAddress = c.SearchPhone = c.SearchZip = u"   "_s; },
     kOnPayroll + kOrder},
    {"AFullWidthBlankIsACondition", [](C& c) { c.SearchName = u"\u3000"_s; },
     kOnPayroll + u" AND M担当者.氏名 LIKE '%\u3000%'"_s + kOrder},
    {"LeadingBlanksStayAndTrailingOnesGo", [](C& c) { c.SearchName = u"  山田 太郎  "_s; },
     kOnPayroll + u" AND M担当者.氏名 LIKE '%  山田 太郎%'"_s + kOrder},
    {"CharactersOutsideTheBasicPlaneStayWhole", [](C& c) { c.SearchName = u"𠮷野"_s; },
     kOnPayroll + u" AND M担当者.氏名 LIKE '%𠮷野%'"_s + kOrder},
    {"OrderByStaffCode", [](C& c) { c.DisplayOrder = 0; }, kOnPayroll + u" ORDER BY M担当者.コード"_s},
    {"OrderByName", [](C& c) { c.DisplayOrder = 2; }, kOnPayroll + u" ORDER BY M担当者.氏名"_s},
    {"OrderByKana", [](C& c) { c.DisplayOrder = 3; }, kOnPayroll + u" ORDER BY M担当者.カナ"_s},
    {"OrderByPostalCode", [](C& c) { c.DisplayOrder = 4; }, kOnPayroll + u" ORDER BY M担当者.郵便番号, M担当者.氏名"_s},
    {"OrderFiveOfTheItemSortsByNothing", [](C& c) { c.DisplayOrder = 5; }, kOnPayroll},
    {"OrderSevenOfAStartCommandSortsByNothing", [](C& c) { c.DisplayOrder = 7; }, kOnPayroll},
    {"AllConditionsAtOnceStandInTheirOrder", SetAllConditions, TextOfAllConditions()},
};
}  // namespace

TEST_P(StaffStatement, HoldsTheConditions) {
    GetParam().set(Conditions());
    EXPECT_EQ(BuildStaffStatement(), kHead + GetParam().afterHead);
}

INSTANTIATE_TEST_SUITE_P(Set, StaffStatement, ::testing::ValuesIn(kCases),
                         [](const auto& set) { return std::string(set.param.name); });

namespace {
struct SelectionCase {
    const char* name;
    QString window;
    bool Flags::*flag;
    bool texts;
    QString InquiryConditions::*bound;  ///< overridden by the selection
    QString expected;
};

void PrintTo(const SelectionCase& selection, std::ostream* out) { *out << selection.name; }

class StaffStatementOfSelection : public InquiryTest, public ::testing::WithParamInterface<SelectionCase> {};

const SelectionCase kSelections[] = {
    {"Departments", u"wnd部門選択一覧"_s, &Flags::DepartmentPicked, false, &C::DepartmentTo,
     u" AND (M担当者.部門コード = 'a1' OR M担当者.部門コード = 'b2')"_s + kOnPayroll},
    {"Sections", u"wndセクション選択一覧"_s, &Flags::SectionPicked, false, &C::SectionFrom,
     u" AND (M担当者.セクションコード = 'a1' OR M担当者.セクションコード = 'b2')"_s + kOnPayroll},
    {"Positions", u"wnd役職選択一覧"_s, &Flags::PositionPicked, false, &C::PositionTo,
     u" AND (M担当者.役職コード = 'a1' OR M担当者.役職コード = 'b2')"_s + kOnPayroll},
    {"Staff", u"wnd担当者選択一覧"_s, &Flags::StaffPicked, false, &C::StaffFrom,
     u" AND (M担当者.コード = 'a1' OR M担当者.コード = 'b2')"_s + kOnPayroll},
    {"Names", u"wnd担当者名複数指定"_s, &Flags::NameListGiven, true, &C::SearchName,
     kOnPayroll + u" AND (M担当者.氏名 LIKE '%a1%' OR M担当者.氏名 LIKE '%b2%')"_s},
    {"Kanas", u"wnd担当者カナ複数指定"_s, &Flags::KanaListGiven, true, &C::SearchKana,
     kOnPayroll + u" AND (M担当者.カナ LIKE '%a1%' OR M担当者.カナ LIKE '%b2%')"_s},
    {"Addresses", u"wnd担当者住所複数指定"_s, &Flags::AddressListGiven, true, &C::SearchAddress,
     kOnPayroll + u" AND ((M担当者.住所A LIKE '%a1%' OR M担当者.住所A LIKE '%b2%')"
                  u" OR (M担当者.住所B LIKE '%a1%' OR M担当者.住所B LIKE '%b2%')"
                  u" OR (M担当者.住所C LIKE '%a1%' OR M担当者.住所C LIKE '%b2%'))"_s},
    {"TelephonesHaveTheAndThatASingleOneLacks", u"wnd担当者電話複数指定"_s, &Flags::PhoneListGiven, true,
     &C::SearchPhone, kOnPayroll + u" AND (M担当者.電話 LIKE '%a1%' OR M担当者.電話 LIKE '%b2%')"_s},
    {"PostalCodes", u"wnd担当者郵便番号複数指定"_s, &Flags::ZipListGiven, true, &C::SearchZip,
     kOnPayroll + u" AND (M担当者.郵便番号 LIKE '%a1%' OR M担当者.郵便番号 LIKE '%b2%')"_s},
};
}  // namespace

TEST_P(StaffStatementOfSelection, OverridesTheHead) {
    const FakeSelection window(GetParam().window, {u"a1"_s, u"b2"_s}, GetParam().texts);
    Globals().Flags.*GetParam().flag = true;
    Conditions().*GetParam().bound = u"7"_s;
    EXPECT_EQ(BuildStaffStatement(), kHead + GetParam().expected + kOrder);
}

INSTANTIATE_TEST_SUITE_P(Of, StaffStatementOfSelection, ::testing::ValuesIn(kSelections),
                         [](const auto& set) { return std::string(set.param.name); });

using StaffStatementOfWindow = InquiryTest;

TEST_F(StaffStatementOfWindow, NarrowedNamesAreJoinedByTheWindow) {
    const FakeSelection window(u"wnd担当者名複数指定"_s, {u"山"_s, u"田"_s}, true, u" AND "_s);
    Globals().Flags.NameListGiven = true;
    EXPECT_EQ(BuildStaffStatement(),
              kHead + kOnPayroll + u" AND (M担当者.氏名 LIKE '%山%' AND M担当者.氏名 LIKE '%田%')"_s + kOrder);
}

TEST_F(StaffStatementOfWindow, WithoutItsWindowAFlagGivesAnEmptyCondition) {
    Globals().Flags.StaffPicked = true;
    EXPECT_EQ(BuildStaffStatement(), kHead + u" AND "_s + kOnPayroll + kOrder);
}

using StaffStatementOfOffice = InquiryTest;

TEST_F(StaffStatementOfOffice, FollowsTheTexts) {
    Globals().ScopeOfficeCode = u"001"_s;
    Conditions().SearchZip = u"100"_s;
    EXPECT_EQ(BuildStaffStatement(),
              kHead + kOnPayroll + u" AND M担当者.郵便番号 LIKE '%100%' AND M担当者.事業所コード = '001'"_s + kOrder);
}

TEST_F(StaffStatementOfOffice, AnEmptyOfficeIsAConditionToo) {
    Globals().ScopeOfficeCode.clear();
    EXPECT_EQ(BuildStaffStatement(), kHead + kOnPayroll + u" AND M担当者.事業所コード = ''"_s + kOrder);
}

using StaffStatementClasses = InquiryTest;

TEST_F(StaffStatementClasses, NineIsWrittenBackAsMaxValue) {
    Conditions().EnrolmentKind = 9;
    const QString statement = BuildStaffStatement();
    EXPECT_EQ(Conditions().EnrolmentKind, 2);
    EXPECT_EQ(Conditions().StaffClass, 4);
    EXPECT_EQ(statement, kHead + kOrder);
}

TEST_F(StaffStatementClasses, AClassBelowMaxValueStays) {
    Conditions().StaffClass = 3;
    BuildStaffStatement();
    EXPECT_EQ(Conditions().EnrolmentKind, 0);
    EXPECT_EQ(Conditions().StaffClass, 3);
}

TEST_F(StaffStatementClasses, WithoutAnyClassRowZeroMeansAll) {
    form.Plain(u"在籍区分"_s).maxValue = 0;
    EXPECT_EQ(BuildStaffStatement(), kHead + kOrder);
    EXPECT_EQ(Conditions().EnrolmentKind, 0);
}
