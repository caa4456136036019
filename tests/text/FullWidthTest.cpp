#include <gtest/gtest.h>

#include <QStringList>

#include "text/mod文字変換.h"

using namespace Qt::StringLiterals;

namespace {
/// Texts separated by bars and their conversions in the same order.
void Check(const QString& texts, const QString& expected) {
    QStringList converted;
    for (const QString& text : texts.split(u'|')) converted << ToFullWidth(text);
    EXPECT_EQ(converted, expected.split(u'|'));
}
}  // namespace

TEST(FullWidth, DigitsAndLettersKeepTheirValue) {
    Check(u"Aa0|0123456789|ABCXYZ|abcxyz"_s, u"Ａａ０|０１２３４５６７８９|ＡＢＣＸＹＺ|ａｂｃｘｙｚ"_s);
}

TEST(FullWidth, EverySignOfTheTableHasItsCompatibilityForm) {
    for (const QChar sign : u"!#$%&()=~|-+*[]@:;.,/?<>{}_"_s)
        EXPECT_EQ(ToFullWidth(QString(sign)), QString(QChar(sign.unicode() + 0xFEE0)))
            << static_cast<int>(sign.unicode());
}

TEST(FullWidth, ApostropheAndBackslashHaveFormsOfTheirOwn) { Check(u"'|\\"_s, u"\u2019|\uFFE5"_s); }

TEST(FullWidth, TheSecondRuleForTheDashIsNeverReached) {
    EXPECT_EQ(ToFullWidth(u"-"_s), u"\uFF0D"_s);
    EXPECT_EQ(ToFullWidth(u"ｰ"_s), u"ー"_s);
}

TEST(FullWidth, AKanaAndItsMarkBecomeOneCharacter) {
    Check(u"ｶﾞ|ﾊﾟ|ｳﾞ|ｶﾞｷﾞｸﾞｹﾞｺﾞ|ｻﾞｼﾞｽﾞｾﾞｿﾞ|ﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞ|ﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ|ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ|ﾔﾏﾀﾞ ﾀﾛｳ"_s,
          u"ガ|パ|ヴ|ガギグゲゴ|ザジズゼゾ|ダヂヅデド|バビブベボ|パピプペポ|ヤマダ タロウ"_s);
}

TEST(FullWidth, PlainAndSmallKanaTakeTheirSound) {
    Check(
        u"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉ|ﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ|ｧｨｩｪｫｯｬｭｮ|ﾀｶ"_s,
        u"アイウエオカキクケコサシスセソタチツテトナニヌネノ|ハヒフヘホマミムメモヤユヨラリルレロワヲン|ァィゥェォッャュョ|タカ"_s);
}

TEST(FullWidth, AMarkWithoutAKanaThatTakesItStaysHalfWidth) { Check(u"ﾅﾞ|ﾞ|ﾟ|ｶﾟ|ｶﾞﾞ|カﾞ"_s, u"ナﾞ|ﾞ|ﾟ|カﾟ|ガﾞ|カﾞ"_s); }

TEST(FullWidth, WhatNoRuleNamesPassesThrough) {
    Check(u"| |\"^`|｡｢｣､･|要員名簿照会|山A田　1𠮷|a b"_s, u"| |\"^`|｡｢｣､･|要員名簿照会|山Ａ田　１𠮷|ａ ｂ"_s);
}
