#include "frame/Mod要員名簿照会.h"

#include <gtest/gtest.h>

#include "globals/ProgramGlobals.h"
#include "support/TestServices.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

class StartCommand : public ::testing::Test {
  protected:
    StartCommand() {
        InquiryConditions& conditions = Conditions();
        conditions.DepartmentFrom = conditions.SectionFrom = u"000"_s;
        conditions.DepartmentTo = conditions.SectionTo = u"999"_s;
        conditions.PositionFrom = u"00"_s;
        conditions.PositionTo = u"99"_s;
        conditions.StaffFrom = u"00000"_s;
        conditions.StaffTo = u"99999"_s;
        Conditions().EnrolmentKind = 0;
        Conditions().StaffClass = 9;
        Conditions().DisplayOrder = 1;
        Globals().ScopeOfficeCode = u"000"_s;
    }
    static InquiryConditions& Conditions() { return Globals().Conditions; }
    static QStringList Ranges() {
        const InquiryConditions& c = Conditions();
        return {c.DepartmentFrom, c.DepartmentTo, c.SectionFrom, c.SectionTo,
                c.PositionFrom,   c.PositionTo,   c.StaffFrom,   c.StaffTo};
    }
    static QStringList Texts() {
        const InquiryConditions& c = Conditions();
        return {c.SearchName, c.SearchKana, c.SearchPhone, c.SearchZip, c.SearchAddress};
    }

    TestServices services;
};

QString Text(const QString& text) { return text.leftJustified(30, u' '); }

const QString kRanges =
    u"001010020030040050600070"
    u"00080"_s;

}  // namespace

TEST_F(StartCommand, AWholeBlockFillsEveryField) {
    ParseStartCommand(kRanges + Text(u"山田"_s) + Text(u"ﾔﾏﾀﾞ"_s) + Text(u"03-"_s) + Text(u"100-"_s) +
                      Text(u"東京都"_s) + u"3"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"001"_s);
    EXPECT_EQ(Ranges(),
              (QStringList{u"010"_s, u"020"_s, u"030"_s, u"040"_s, u"05"_s, u"06"_s, u"00070"_s, u"00080"_s}));
    EXPECT_EQ(Texts(),
              (QStringList{Text(u"山田"_s), Text(u"ﾔﾏﾀﾞ"_s), Text(u"03-"_s), Text(u"100-"_s), Text(u"東京都"_s)}))
        << "search texts keep their blanks";
    EXPECT_EQ(Conditions().DisplayOrder, 3);
    EXPECT_EQ(Conditions().EnrolmentKind, 0);
    EXPECT_EQ(Conditions().StaffClass, 9);
    EXPECT_FALSE(Globals().StartCommandAbsent);
}

TEST_F(StartCommand, AnOfficeAloneEmptiesEveryRange) {
    ParseStartCommand(u"001"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"001"_s);
    EXPECT_EQ(Ranges(), QStringList(8, QString()));
    EXPECT_EQ(Texts(), QStringList(5, QString()));
    EXPECT_EQ(Conditions().DisplayOrder, 0);
    EXPECT_TRUE(Globals().StartCommandAbsent);
}

TEST_F(StartCommand, ABlockUpToTheRangesIsComplete) {
    ParseStartCommand(kRanges);
    EXPECT_EQ(Ranges().last(), u"00080"_s);
    EXPECT_FALSE(Globals().StartCommandAbsent);
}

TEST_F(StartCommand, AFieldCutInItsMiddleCountsAsGiven) {
    ParseStartCommand(kRanges.left(25));
    EXPECT_EQ(Ranges().last(), u"0"_s);
    EXPECT_FALSE(Globals().StartCommandAbsent);
    Globals().StartCommandAbsent = true;
    ParseStartCommand(kRanges.left(24));
    EXPECT_EQ(Ranges().last(), QString());
    EXPECT_EQ(Ranges().first(), u"010"_s) << "an incomplete block stays in force as far as it goes";
    EXPECT_TRUE(Globals().StartCommandAbsent);
}

TEST_F(StartCommand, OnlyRangeStartsOfBlanksBecomeEmpty) {
    ParseStartCommand(u"001"_s + QString(26, u' ') + Text(u""_s) + QString(121, u' '));
    EXPECT_EQ(Ranges(), (QStringList{u""_s, u"   "_s, u""_s, u"   "_s, u""_s, u"  "_s, u""_s, u"     "_s}));
    EXPECT_EQ(Texts(), QStringList(5, QString(30, u' ')));
    EXPECT_EQ(Conditions().DisplayOrder, 0);
    EXPECT_FALSE(Globals().StartCommandAbsent);
}

TEST_F(StartCommand, AnIncompleteBlockKeepsItsBlankStarts) {
    ParseStartCommand(u"001"_s + QString(6, u' ') + u"01"_s);
    EXPECT_EQ(Ranges().mid(0, 3), (QStringList{u"   "_s, u"   "_s, u"01"_s}));
    EXPECT_TRUE(Globals().StartCommandAbsent);
}

TEST_F(StartCommand, ABlankOfficeShiftsEveryFieldToTheLeft) {
    ParseStartCommand(TrimBlanks(u"   "_s + kRanges.mid(3)));
    EXPECT_EQ(Globals().ScopeOfficeCode, u"010"_s);
    EXPECT_EQ(Ranges().first(), u"020"_s);
}

TEST_F(StartCommand, WhatStandsBehindTheBlockIsIgnored) {
    ParseStartCommand(kRanges + QString(150, u' ') + u"2999 more"_s);
    EXPECT_EQ(Conditions().DisplayOrder, 2);
    EXPECT_EQ(Conditions().SearchAddress, QString(30, u' '));
}

TEST_F(StartCommand, DisplayOrderIsTheNumberOfItsCharacter) {
    const QList<std::pair<QString, int>> cases = {{u" "_s, 0}, {u"x"_s, 0},  {u"0"_s, 0}, {u"4"_s, 4},
                                                  {u"7"_s, 7}, {u"９"_s, 0}, {u"-"_s, 0}};
    for (const auto& [character, expected] : cases) {
        ParseStartCommand(kRanges + QString(150, u' ') + character);
        EXPECT_EQ(Conditions().DisplayOrder, expected) << character.toStdString();
    }
}

TEST_F(StartCommand, LettersAndQuotesAreTakenAsTheyAre) {
    ParseStartCommand(u"A'1x'ya\"bccddddeeff"_s + u"ggggghhhhh"_s + u"O'Neil"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"A'1"_s);
    EXPECT_EQ(Ranges(),
              (QStringList{u"x'y"_s, u"a\"b"_s, u"ccd"_s, u"ddd"_s, u"ee"_s, u"ff"_s, u"ggggg"_s, u"hhhhh"_s}));
    EXPECT_EQ(Conditions().SearchName, u"O'Neil"_s);
}

TEST_F(StartCommand, FieldsAreCutByCharactersAndNotByBytes) {
    ParseStartCommand(kRanges + QString(30, u'漢') + QString(30, u'ｱ'));
    EXPECT_EQ(Conditions().SearchName, QString(30, u'漢'));
    EXPECT_EQ(Conditions().SearchKana, QString(30, u'ｱ'));
}
