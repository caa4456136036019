#include "output/ReportData.h"

#include "support/OutputFixture.h"

using namespace Qt::StringLiterals;

namespace {

using SelectionText = OutputTest;

InquiryConditions& Conditions() { return Globals().Conditions; }

struct SearchCase {
    QString InquiryConditions::*text;
    bool ConditionFlags::*listed;
    const char16_t* window;
    const char16_t* segment;  // with the text " x "
};
void PrintTo(const SearchCase& row, std::ostream* out) { *out << QString::fromUtf16(row.segment).toStdString(); }
class SearchSegment : public OutputTest, public testing::WithParamInterface<SearchCase> {};

struct RangeCase {
    QString InquiryConditions::*from;
    QString InquiryConditions::*to;
    bool ConditionFlags::*picked;
    const char16_t* window;
    const char16_t* newFrom;
    const char16_t* newTo;
    const char16_t* bothChanged;
    const char16_t* onlyToChanged;
    const char16_t* onlyFromChanged;
};
void PrintTo(const RangeCase& row, std::ostream* out) { *out << QString::fromUtf16(row.bothChanged).toStdString(); }
class RangeSegment : public OutputTest, public testing::WithParamInterface<RangeCase> {};

const QString kOrder = u"  表示順：所属コード順"_s;

}  // namespace

TEST_F(SelectionText, AllDefaultsSayTheOrderAloneWithoutBlanksInFront) {
    EXPECT_EQ(BuildSelectionText(), u"表示順：所属コード順"_s);
}

TEST_F(SelectionText, TheOrderIsWhatItsListShowsAlsoNothing) {
    form.Plain(u"表示順区分名称"_s).text.clear();
    EXPECT_EQ(BuildSelectionText(), u"表示順："_s);
}

TEST_F(SelectionText, ClassesAreNamedUnlessTheyMeanAll) {
    Conditions().EnrolmentKind = 0;
    form.Plain(u"在籍区分名称"_s).text = u"在籍"_s;
    EXPECT_EQ(BuildSelectionText(), u"在籍区分：在籍"_s + kOrder);
    Conditions().StaffClass = 3;
    form.Plain(u"社員区分名称"_s).text = u"派遣"_s;
    EXPECT_EQ(BuildSelectionText(), u"在籍区分：在籍  社員区分：派遣"_s + kOrder);
}

TEST_F(SelectionText, AClassBeyondItsListDiffersFromAllAndIsNamed) {
    Conditions().StaffClass = 9;
    form.Plain(u"社員区分名称"_s).text.clear();
    EXPECT_EQ(BuildSelectionText(), u"社員区分："_s + kOrder);
}

TEST_F(SelectionText, BlanksAloneAreNoSearchText) {
    Conditions().SearchName = u"    "_s;
    EXPECT_EQ(BuildSelectionText(), u"表示順：所属コード順"_s);
    Conditions().SearchName = u"　"_s;  // a full-width blank counts as text
    EXPECT_EQ(BuildSelectionText(), u"検索担当者名：　"_s + kOrder);
}

TEST_P(SearchSegment, ShowsTheStoredTextWithItsBlanks) {
    Conditions().*GetParam().text = u" x "_s;
    EXPECT_EQ(BuildSelectionText(), QString::fromUtf16(GetParam().segment) + kOrder);
}

TEST_P(SearchSegment, IsWhatItsWindowSaysWhileThatHoldsAList) {
    Conditions().*GetParam().text = u"x"_s;
    const DescribedSelection window(QString::fromUtf16(GetParam().window), u"窓の言葉"_s);
    EXPECT_NE(BuildSelectionText(), u"窓の言葉"_s + kOrder);
    Globals().Flags.*GetParam().listed = true;
    EXPECT_EQ(BuildSelectionText(), u"窓の言葉"_s + kOrder);
}

INSTANTIATE_TEST_SUITE_P(Each, SearchSegment,
                         testing::Values(SearchCase{&InquiryConditions::SearchName, &ConditionFlags::NameListGiven,
                                                    u"wnd担当者名複数指定", u"検索担当者名： x "},
                                         SearchCase{&InquiryConditions::SearchKana, &ConditionFlags::KanaListGiven,
                                                    u"wnd担当者カナ複数指定", u"検索担当者カナ： x "},
                                         SearchCase{&InquiryConditions::SearchAddress,
                                                    &ConditionFlags::AddressListGiven, u"wnd担当者住所複数指定",
                                                    u"検索担当者住所： x "},
                                         SearchCase{&InquiryConditions::SearchPhone, &ConditionFlags::PhoneListGiven,
                                                    u"wnd担当者電話複数指定", u"検索担当者電話： x "},
                                         SearchCase{&InquiryConditions::SearchZip, &ConditionFlags::ZipListGiven,
                                                    u"wnd担当者郵便番号複数指定", u"検索担当者郵便番号： x "}));

TEST_P(RangeSegment, ShowsBothEndsWhicheverChanged) {
    const QString from = Conditions().*GetParam().from, to = Conditions().*GetParam().to;
    Conditions().*GetParam().to = QString::fromUtf16(GetParam().newTo);
    EXPECT_EQ(BuildSelectionText(), QString::fromUtf16(GetParam().onlyToChanged) + kOrder);
    Conditions().*GetParam().from = QString::fromUtf16(GetParam().newFrom);
    EXPECT_EQ(BuildSelectionText(), QString::fromUtf16(GetParam().bothChanged) + kOrder);
    Conditions().*GetParam().to = to;
    EXPECT_EQ(BuildSelectionText(), QString::fromUtf16(GetParam().onlyFromChanged) + kOrder);
    Conditions().*GetParam().from = from;
    EXPECT_EQ(BuildSelectionText(), u"表示順：所属コード順"_s);
}

TEST_P(RangeSegment, AnEmptyEndIsAChangedOne) {
    Conditions().*GetParam().to = QString();
    EXPECT_TRUE(BuildSelectionText().endsWith(u"～"_s + kOrder));
}

TEST_P(RangeSegment, IsWhatItsWindowSaysWhileThatHoldsAPick) {
    const DescribedSelection window(QString::fromUtf16(GetParam().window), u"窓の言葉"_s);
    Globals().Flags.*GetParam().picked = true;
    EXPECT_EQ(BuildSelectionText(), u"窓の言葉"_s + kOrder);
}

INSTANTIATE_TEST_SUITE_P(
    Each, RangeSegment,
    testing::Values(RangeCase{&InquiryConditions::DepartmentFrom, &InquiryConditions::DepartmentTo,
                              &ConditionFlags::DepartmentPicked, u"wnd部門選択一覧", u"010", u"020",
                              u"部門コード範囲:010～020", u"部門コード範囲:000～020", u"部門コード範囲:010～999"},
                    RangeCase{&InquiryConditions::SectionFrom, &InquiryConditions::SectionTo,
                              &ConditionFlags::SectionPicked, u"wndセクション選択一覧", u"001", u"002",
                              u"セクションコード範囲:001～002", u"セクションコード範囲:000～002",
                              u"セクションコード範囲:001～999"},
                    RangeCase{&InquiryConditions::PositionFrom, &InquiryConditions::PositionTo,
                              &ConditionFlags::PositionPicked, u"wnd役職選択一覧", u"10", u"50",
                              u"役職コード範囲:10～50", u"役職コード範囲:00～50", u"役職コード範囲:10～99"},
                    RangeCase{&InquiryConditions::StaffFrom, &InquiryConditions::StaffTo, &ConditionFlags::StaffPicked,
                              u"wnd担当者選択一覧", u"00010", u"00300", u"担当者コード範囲:00010～00300",
                              u"担当者コード範囲:00000～00300", u"担当者コード範囲:00010～99999"}));

TEST_F(SelectionText, AWindowThatSaysNothingLeavesFourBlanksInARow) {
    Conditions().EnrolmentKind = 0;
    form.Plain(u"在籍区分名称"_s).text = u"在籍"_s;
    Globals().Flags.NameListGiven = true;
    const DescribedSelection window(u"wnd担当者名複数指定"_s, QString());
    EXPECT_EQ(BuildSelectionText(), u"在籍区分：在籍    表示順：所属コード順"_s);
}

TEST_F(SelectionText, AnEmptyFirstSegmentStillPutsBlanksBeforeTheNext) {
    Globals().Flags.DepartmentPicked = true;
    EXPECT_EQ(BuildSelectionText(), u"  表示順：所属コード順"_s);
}

TEST_F(SelectionText, SegmentsHaveTheirOrderAndColons) {
    InquiryConditions& conditions = Conditions();
    conditions.EnrolmentKind = 1;
    conditions.StaffClass = 0;
    form.Plain(u"在籍区分名称"_s).text = u"退職"_s;
    form.Plain(u"社員区分名称"_s).text = u"正社員"_s;
    conditions.SearchName = u"山"_s;
    conditions.SearchKana = u"ﾔﾏ"_s;
    conditions.SearchAddress = u"東京"_s;
    conditions.SearchPhone = u"03"_s;
    conditions.SearchZip = u"105"_s;
    conditions.DepartmentFrom = u"010"_s;
    conditions.SectionTo = u"002"_s;
    conditions.PositionFrom = u"10"_s;
    conditions.StaffTo = u"00300"_s;
    EXPECT_EQ(BuildSelectionText(),
              u"在籍区分：退職  社員区分：正社員  検索担当者名：山  検索担当者カナ：ﾔﾏ  検索担当者住所：東京"
              u"  検索担当者電話：03  検索担当者郵便番号：105  部門コード範囲:010～999"
              u"  セクションコード範囲:000～002  役職コード範囲:10～99  担当者コード範囲:00000～00300"
              u"  表示順：所属コード順"_s);
}
