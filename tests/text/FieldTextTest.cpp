#include "text/mod項目編集.h"

#include <gtest/gtest.h>

#include <QList>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct TextCase {
    QString text, expected;
};

struct MaskCase {
    QString value, mask, expected;
};

struct CutCase {
    QString text;
    int maxBytes;
    QString cut;
    int overflow;
};

}  // namespace

TEST(FieldText, OnlyHalfWidthBlanksAreTrimmed) {
    const QList<TextCase> cases = {{u""_s, u""_s},           {u"   "_s, u""_s},        {u"  a b  "_s, u"a b"_s},
                                   {u"　a　"_s, u"　a　"_s}, {u"\ta\n"_s, u"\ta\n"_s}, {u" \u00A0a"_s, u"\u00A0a"_s}};
    for (const TextCase& test : cases) EXPECT_EQ(TrimBlanks(test.text), test.expected);
}

TEST(FieldText, NumericValueTakesTheDigitsAtTheHead) {
    struct NumberCase {
        QString text;
        int expected;
    };
    const QList<NumberCase> cases = {{u""_s, 0},      {u"abc"_s, 0},   {u"0"_s, 0},   {u"007"_s, 7},
                                     {u" 1 2"_s, 12}, {u"12a3"_s, 12}, {u"-5"_s, 0},  {u"１２"_s, 0},
                                     {u"1.9"_s, 1},   {u" "_s, 0},     {u"1:2"_s, 1}, {u"1/2"_s, 1}};
    for (const NumberCase& test : cases) EXPECT_EQ(NumericValue(test.text), test.expected) << test.text.toStdString();
}

TEST(FieldText, NumericValueOfTooManyDigitsStaysTheHighest) {
    EXPECT_EQ(NumericValue(QString(400, u'9')), std::numeric_limits<int>::max());
}

TEST(FieldText, NumbersAreFormattedByTheMask) {
    const QList<MaskCase> cases = {
        {u"5"_s, u"000"_s, u"005"_s},
        {u"1234"_s, u"000"_s, u"1234"_s},
        {u"0"_s, u"##0"_s, u"0"_s},
        {u"12"_s, u"##0"_s, u"12"_s},
        {u"1234567"_s, u"#,###,##0"_s, u"1,234,567"_s},
        {u"999"_s, u"#,###,##0"_s, u"999"_s},
        {u"1000"_s, u"#,###,##0"_s, u"1,000"_s},
        {u"0"_s, u"#,###,##0"_s, u"0"_s},
        {u"-1234"_s, u"#,###,##0"_s, u"-1,234"_s},
        {u" 12 "_s, u"000"_s, u"012"_s},
        {u"1.5"_s, u"000"_s, u"002"_s},
        {u"99.5"_s, u"00"_s, u"100"_s},
        {u"1.4"_s, u"000"_s, u"001"_s},
        {u"-1.4"_s, u"000"_s, u"-001"_s},
        {u"-1.5"_s, u"000"_s, u"-002"_s},
        {u"+7"_s, u"00"_s, u"07"_s},
        {u".5"_s, u"0"_s, u"1"_s},
        {u"00000000000000000012345"_s, u"000"_s, u"12345"_s},
    };
    for (const MaskCase& test : cases)
        EXPECT_EQ(FormatByMask(test.value, test.mask), test.expected) << test.value.toStdString();
}

TEST(FieldText, IntegersAreFormattedLikeTheirText) {
    struct IntegerCase {
        qint64 value;
        QString mask, expected;
    };
    const QList<IntegerCase> cases = {
        {32753, u"#,###,##0"_s, u"32,753"_s},
        {0, u"##0"_s, u"0"_s},
        {0, u"###"_s, u""_s},
        {1, u"##0"_s, u"1"_s},
        {-1, u"000"_s, u"-001"_s},
        {1, u"###"_s, u"1"_s},
        {-1234, u"#,##0"_s, u"-1,234"_s},
    };
    for (const IntegerCase& test : cases) {
        EXPECT_EQ(FormatByMask(test.value, test.mask), test.expected);
        EXPECT_EQ(FormatByMask(QString::number(test.value), test.mask), test.expected);
    }
}

TEST(FieldText, WhatIsNotANumberPassesTheMaskUnchanged) {
    for (const QString& value :
         {u""_s, u"abc"_s, u"1a"_s, u" "_s, u"-"_s, u"."_s, u"1 2"_s, u"1.2.3"_s, u"--1"_s, u"1.a5"_s, u"1:"_s})
        EXPECT_EQ(FormatByMask(value, u"000"_s), value);
}

TEST(FieldText, CutAndNoticeCountByBytesAndGiveCharacters) {
    const QList<CutCase> cases = {
        {u"あいうえお"_s, 10, u"あいうえお"_s, 0},
        {u"あいうえおか"_s, 10, u"あいうえお"_s, 1},
        {u"あいうえ"_s, 5, u"あい"_s, 2},
        {u"あいう"_s, 0, u""_s, 3},
        {u""_s, 0, u""_s, 0},
        {u"ABCDE"_s, 5, u"ABCDE"_s, 0},
        {u"ABCDEF"_s, 5, u"ABCDE"_s, 1},
        {u"ﾔﾏﾀﾞﾀﾛｳ"_s, 4, u"ﾔﾏﾀﾞ"_s, 3},
        {u"aあbいc"_s, 4, u"aあb"_s, 2},
        {u"𠮷野"_s, 2, u"𠮷"_s, 1},
        {u"𠮷野"_s, 1, u""_s, 3},  // does not split a surrogate pair
        {u"あa𠮷𠮷"_s, 6, u"あa𠮷"_s, 2},
        {u"あいうえおかきくけこさしすせそたちつてと"_s, 20, u"あいうえおかきくけこ"_s, 10},
    };
    for (const CutCase& test : cases) {
        EXPECT_EQ(CutToLength(test.text, test.maxBytes), test.cut) << test.text.toStdString();
        EXPECT_EQ(OverflowCount(test.text, test.maxBytes), test.overflow) << test.text.toStdString();
    }
}

TEST(FieldText, OnlyAWholeSurrogatePairIsKeptTogether) {
    const QString high(QChar(0xD842));
    const QString low(QChar(0xDFB7));
    const QList<CutCase> cases = {
        {high + low, 1, u""_s, 2},
        {u'a' + high + u'b', 2, u'a' + high, 1},
        {u'a' + low, 1, u"a"_s, 1},
        {low, 0, u""_s, 1},
    };
    for (const CutCase& test : cases) {
        EXPECT_EQ(CutToLength(test.text, test.maxBytes), test.cut);
        EXPECT_EQ(OverflowCount(test.text, test.maxBytes), test.overflow);
    }
}

TEST(FieldText, QuotesAreDoubledAndBlanksAtTheRightEndRemoved) {
    const QList<TextCase> cases = {
        {u"O'Neil  "_s, u"O''Neil"_s}, {u"'"_s, u"''"_s},     {u"   "_s, u""_s},     {u""_s, u""_s},
        {u"  a"_s, u"  a"_s},          {u"a　 "_s, u"a　"_s}, {u"a '"_s, u"a ''"_s}, {u"''"_s, u"''''"_s},
        {u"%_[a]*"_s, u"%_[a]*"_s},    {u"a　"_s, u"a　"_s},
    };
    for (const TextCase& test : cases) EXPECT_EQ(QuoteSqlText(test.text), test.expected) << test.text.toStdString();
}

TEST(FieldText, RangeDefaultsFollowTheMaskAndTheLengthOnlyWithoutOne) {
    EXPECT_EQ(DefaultRangeFrom(u"000"_s, 7), u"000"_s);
    EXPECT_EQ(DefaultRangeFrom(u"00000"_s, 0), u"00000"_s);
    EXPECT_EQ(DefaultRangeFrom(QString(), 3), QString());
    EXPECT_EQ(DefaultRangeTo(u"000"_s, 7), u"999"_s);
    EXPECT_EQ(DefaultRangeTo(u"00"_s, 0), u"99"_s);
    EXPECT_EQ(DefaultRangeTo(QString(), 3), u"ZZZ"_s);
    EXPECT_EQ(DefaultRangeTo(QString(), 0), QString());
}

TEST(FieldText, ACodeKeepsItsLeftPartUnderTheMask) {
    const QList<MaskCase> cases = {
        {u"12"_s, u"000"_s, u"012"_s},    {u"1234"_s, u"000"_s, u"123"_s}, {u""_s, u"000"_s, u""_s},
        {u"abcd"_s, u"00"_s, u"ab"_s},    {u"1234"_s, u""_s, u"1234"_s},   {u""_s, u""_s, u""_s},
        {u"7"_s, u"00000"_s, u"00007"_s}, {u"0"_s, u"00"_s, u"00"_s},      {u"-5"_s, u"000"_s, u"-00"_s},
        {u"00012"_s, u"000"_s, u"012"_s}, {u"007"_s, u""_s, u"007"_s},     {u" 12 "_s, u""_s, u" 12 "_s},
        {u"abc"_s, u""_s, u"abc"_s},      {u"1.5"_s, u""_s, u"1.5"_s},
    };
    for (const MaskCase& test : cases)
        EXPECT_EQ(FormatCodeByMask(test.value, test.mask), test.expected) << test.value.toStdString();
}

TEST(FieldText, RepeatingNothingOrLessGivesNothing) {
    EXPECT_EQ(RepeatZero(3), u"000"_s);
    EXPECT_EQ(RepeatNine(2), u"99"_s);
    EXPECT_EQ(RepeatZ(1), u"Z"_s);
    for (const int count : {0, -1}) {
        EXPECT_EQ(RepeatZero(count), QString());
        EXPECT_EQ(RepeatNine(count), QString());
        EXPECT_EQ(RepeatZ(count), QString());
    }
}
