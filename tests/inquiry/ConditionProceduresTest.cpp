#include <stdexcept>

#include "inquiry/InquiryTest.h"
#include "support/FormRobot.h"

using namespace Qt::StringLiterals;

namespace {
using ConditionDefaults = InquiryTest;
using RangeBounds = InquiryTest;
using RangeEnds = InquiryTest;
using SearchTexts = InquiryTest;
using Kinds = InquiryTest;
using LengthNotice = InquiryTest;
using Clearing = InquiryTest;

/// Range bounds, texts and kinds as one line.
QString Summary(const InquiryConditions& conditions) {
    const auto& [departmentFrom, departmentTo, sectionFrom, sectionTo, positionFrom, positionTo, staffFrom, staffTo,
                 name, kana, phone, zip, address, enrolment, staffClass, order] = conditions;
    QStringList parts = {departmentFrom, departmentTo, sectionFrom, sectionTo, positionFrom, positionTo, staffFrom};
    parts << staffTo << name << kana << phone << zip << address;
    for (const int kind : {enrolment, staffClass, order}) parts << QString::number(kind);
    return parts.join(u'|');
}

void FillEverything() {
    Globals().Conditions = {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s,
                            u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, 1,      2,      3};
}

/// Leaves the window loaded and hidden, as a window with a selection is.
void UseAndHide(Form& window) {
    window.ShowModeless();
    window.HideForm();
}

const TextCondition& TextOf(const QString& item) {
    for (const TextCondition& text : TextConditions())
        if (text.item == item) return text;
    throw std::out_of_range(item.toStdString());
}
}  // namespace

TEST_F(ConditionDefaults, AStartOpensAllRangesAndTakesNineForTheStaffClass) {
    FillEverything();
    SetInitialConditions();
    EXPECT_EQ(Summary(Conditions()), u"000|999|000|999|00|99|00000|99999||||||0|9|1"_s);
}

TEST_F(ConditionDefaults, AClearTakesMaxValueForTheStaffClass) {
    FillEverything();
    ResetConditions();
    EXPECT_EQ(Summary(Conditions()), u"000|999|000|999|00|99|00000|99999||||||0|4|1"_s);
}

TEST_F(RangeBounds, CrossingBoundMovesTheOtherOne) {
    Conditions().DepartmentTo = u"100"_s;
    EXPECT_EQ(AcceptRangeStart(Range::Department, u"500"_s), 0);
    EXPECT_EQ(Conditions().DepartmentFrom, u"500"_s);
    EXPECT_EQ(Conditions().DepartmentTo, u"500"_s);
    EXPECT_EQ(AcceptRangeEnd(Range::Department, u"200"_s), 0);
    EXPECT_EQ(Conditions().DepartmentFrom, u"200"_s);
    EXPECT_EQ(Conditions().DepartmentTo, u"200"_s);
}

TEST_F(RangeBounds, AClearedEndClearsTheStart) {
    EXPECT_EQ(AcceptRangeEnd(Range::Department, QString()), 0);
    EXPECT_EQ(Conditions().DepartmentFrom, QString());
    EXPECT_EQ(Conditions().DepartmentTo, QString());
}

TEST_F(RangeBounds, AClearedStartLeavesTheEnd) {
    EXPECT_EQ(AcceptRangeStart(Range::Section, QString()), -1);
    EXPECT_EQ(Conditions().SectionFrom, QString());
    EXPECT_EQ(Conditions().SectionTo, u"999"_s);
}

TEST_F(RangeBounds, AnEqualValueIsNoChange) {
    EXPECT_EQ(AcceptRangeStart(Range::Position, u"00"_s), 1);
    EXPECT_EQ(AcceptRangeEnd(Range::Position, u"99"_s), 1);
    EXPECT_EQ(Conditions().PositionFrom, u"00"_s);
    EXPECT_EQ(Conditions().PositionTo, u"99"_s);
}

TEST_F(RangeBounds, InOrderBothBoundsStay) {
    EXPECT_EQ(AcceptRangeStart(Range::Staff, u"00100"_s), -1);
    EXPECT_EQ(AcceptRangeEnd(Range::Staff, u"00100"_s), -1);
    EXPECT_EQ(Conditions().StaffFrom, u"00100"_s);
    EXPECT_EQ(Conditions().StaffTo, u"00100"_s);
}

TEST_F(RangeBounds, BoundsCompareAsTextByCodeUnit) {
    EXPECT_EQ(AcceptRangeStart(Range::Department, u"９"_s), 0);
    EXPECT_EQ(Conditions().DepartmentTo, u"９"_s);
    EXPECT_EQ(AcceptRangeEnd(Range::Department, u"a"_s), 0);
    EXPECT_EQ(Conditions().DepartmentFrom, u"a"_s);
}

TEST_F(RangeEnds, TheFirstEmptyEndCountsAndStartsDoNot) {
    Conditions().DepartmentFrom.clear();
    Conditions().StaffFrom.clear();
    EXPECT_EQ(CheckRangeEnds(), 0);
    Conditions().StaffTo.clear();
    EXPECT_EQ(CheckRangeEnds(), 4);
    Conditions().PositionTo.clear();
    EXPECT_EQ(CheckRangeEnds(), 3);
    Conditions().SectionTo.clear();
    EXPECT_EQ(CheckRangeEnds(), 2);
    Conditions().DepartmentTo.clear();
    EXPECT_EQ(CheckRangeEnds(), 1);
}

TEST_F(RangeEnds, AnEndOfBlanksIsNotEmpty) {
    Conditions().DepartmentTo = u"   "_s;
    EXPECT_EQ(CheckRangeEnds(), 0);
}

TEST_F(SearchTexts, NameKanaAndAddressAreCutToTheirBytes) {
    for (const QString& item : {u"検索名称"_s, u"検索カナ"_s, u"検索住所"_s}) {
        const int bytes = form.Item(item).MaxLength();
        EXPECT_TRUE(AcceptSearchText(TextOf(item), QString(bytes, u'山')));
        EXPECT_EQ(Conditions().*TextOf(item).field, QString(bytes / 2, u'山')) << item.toStdString();
    }
}

TEST_F(SearchTexts, TelephoneAndPostalCodeAreStoredUncut) {
    for (const QString& item : {u"検索電話"_s, u"検索郵便番号"_s}) {
        EXPECT_TRUE(AcceptSearchText(TextOf(item), QString(30, u'1')));
        EXPECT_EQ(Conditions().*TextOf(item).field, QString(30, u'1')) << item.toStdString();
    }
}

TEST_F(SearchTexts, TheSameTextIsNoChange) {
    Conditions().SearchName = u"山田"_s;
    EXPECT_FALSE(AcceptSearchText(TextOf(u"検索名称"_s), u"山田"_s));
    EXPECT_TRUE(AcceptSearchText(TextOf(u"検索名称"_s), u"山田 "_s));
    EXPECT_EQ(Conditions().SearchName, u"山田 "_s);
}

TEST_F(SearchTexts, TextCutToTheStoredOneStillNeedsARepaint) {
    Conditions().SearchName = QString(10, u'山');
    EXPECT_TRUE(AcceptSearchText(TextOf(u"検索名称"_s), QString(11, u'山')));
    EXPECT_EQ(Conditions().SearchName, QString(10, u'山'));
}

TEST_F(Kinds, EachKindIsStoredInItsField) {
    EXPECT_TRUE(AcceptKind(KindConditions()[0], 1));
    EXPECT_TRUE(AcceptKind(KindConditions()[1], 2));
    EXPECT_TRUE(AcceptKind(KindConditions()[2], 5));
    EXPECT_FALSE(AcceptKind(KindConditions()[2], 5));
    EXPECT_EQ(Conditions().EnrolmentKind, 1);
    EXPECT_EQ(Conditions().StaffClass, 2);
    EXPECT_EQ(Conditions().DisplayOrder, 5);
}

TEST_F(LengthNotice, CountsCharactersAndNotBytes) {
    CheckInputLength(QString(20, u'山'), 20);
    EXPECT_EQ(form.Item(u"お知らせ"_s).Caption(), u"10文字オーバーです。"_s);
    CheckInputLength(u"山山山山"_s, 5);
    EXPECT_EQ(form.Item(u"お知らせ"_s).Caption(), u"2文字オーバーです。"_s);
}

TEST_F(LengthNotice, BeginsWithTheFirstCharacterTooMany) {
    CheckInputLength(u"あいうえおか"_s, 10);
    EXPECT_EQ(form.Item(u"お知らせ"_s).Caption(), u"1文字オーバーです。"_s);
}

TEST_F(LengthNotice, CountsTheWholeTextWhereNothingFits) {
    CheckInputLength(u"あいう"_s, 0);
    EXPECT_EQ(form.Item(u"お知らせ"_s).Caption(), u"3文字オーバーです。"_s);
    CheckInputLength(u""_s, 0);
    EXPECT_EQ(form.Item(u"お知らせ"_s).Caption(), QString());
}

TEST_F(LengthNotice, GoesWhenTheTextFits) {
    form.Item(u"お知らせ"_s).SetCaption(u"1文字オーバーです。"_s);
    CheckInputLength(u"山山"_s, 4);
    EXPECT_EQ(form.Item(u"お知らせ"_s).Caption(), QString());
}

TEST_F(Clearing, UnloadsTheConditionWindowsAndLeavesTheLookups) {
    const QStringList windows = {u"wnd担当者名複数指定"_s,   u"wnd担当者カナ複数指定"_s,     u"wnd担当者住所複数指定"_s,
                                 u"wnd担当者電話複数指定"_s, u"wnd担当者郵便番号複数指定"_s, u"wnd部門選択一覧"_s,
                                 u"wndセクション選択一覧"_s, u"wnd役職選択一覧"_s,           u"wnd担当者選択一覧"_s};
    for (const QString& window : windows) UseAndHide(*new Form(window));
    Form lookup(u"wnd担当者一覧"_s);
    UseAndHide(lookup);
    ASSERT_EQ(LoadedForms().size(), 10U);
    Globals().Flags = {true, true, true, true, true, true, true, true, true};

    CloseConditionWindows();

    QStringList left;
    for (const Form* loaded : LoadedForms()) left << loaded->Name();
    EXPECT_EQ(left, QStringList{u"wnd担当者一覧"_s});
    const ConditionFlags& f = Globals().Flags;
    EXPECT_FALSE(f.NameListGiven || f.KanaListGiven || f.AddressListGiven || f.PhoneListGiven || f.ZipListGiven ||
                 f.DepartmentPicked || f.SectionPicked || f.PositionPicked || f.StaffPicked);
}

TEST_F(Clearing, ResetsConditionsAndRowsAndKeepsTheOffice) {
    FillEverything();
    Globals().ScopeOfficeCode = u"002"_s;
    Globals().LastRow = 3;
    Globals().TopRow = 2;
    Rows().SetText(StaffText::担当者名, 3, u"山田"_s);
    CloseConditionWindows();
    EXPECT_EQ(Summary(Conditions()), u"000|999|000|999|00|99|00000|99999||||||0|4|1"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"002"_s);
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_EQ(Globals().TopRow, 0);
    EXPECT_EQ(Rows().Text(StaffText::担当者名, 3), QString());
}
