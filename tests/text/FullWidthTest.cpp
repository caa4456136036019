#include <gtest/gtest.h>

#include <QList>

#include "text/mod文字変換.h"

using namespace Qt::StringLiterals;

namespace {
struct Case {
    QString text, expected;
};
void Check(const QList<Case>& cases) {
    for (const Case& test : cases) EXPECT_EQ(ToFullWidth(test.text), test.expected) << test.text.toStdString();
}
}  // namespace

TEST(FullWidth, DigitsAndLettersKeepTheirValue) {
    Check({{u"Aa0"_s, u"Ａａ０"_s},
           {u"0123456789"_s, u"０１２３４５６７８９"_s},
           {u"ABCXYZ"_s, u"ＡＢＣＸＹＺ"_s},
           {u"abcxyz"_s, u"ａｂｃｘｙｚ"_s}});
}

TEST(FullWidth, EverySignOfTheTableHasItsCompatibilityForm) {
    for (const QChar sign : u"!#$%&()=~|-+*[]@:;.,/?<>{}_"_s)
        EXPECT_EQ(ToFullWidth(QString(sign)), QString(QChar(sign.unicode() + 0xFEE0)))
            << static_cast<int>(sign.unicode());
}

TEST(FullWidth, ApostropheAndBackslashHaveFormsOfTheirOwn) { Check({{u"'"_s, u"\u2019"_s}, {u"\\"_s, u"\uFFE5"_s}}); }

TEST(FullWidth, TheSecondRuleForTheDashIsNeverReached) {
    EXPECT_EQ(ToFullWidth(u"-"_s), u"\uFF0D"_s);
    EXPECT_EQ(ToFullWidth(u"ｰ"_s), u"ー"_s);
}

TEST(FullWidth, AKanaAndItsMarkBecomeOneCharacter) {
    Check({{u"ｶﾞ"_s, u"ガ"_s},
           {u"ﾊﾟ"_s, u"パ"_s},
           {u"ｳﾞ"_s, u"ヴ"_s},
           {u"ｶﾞｷﾞｸﾞｹﾞｺﾞ"_s, u"ガギグゲゴ"_s},
           {u"ｻﾞｼﾞｽﾞｾﾞｿﾞ"_s, u"ザジズゼゾ"_s},
           {u"ﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞ"_s, u"ダヂヅデド"_s},
           {u"ﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ"_s, u"バビブベボ"_s},
           {u"ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ"_s, u"パピプペポ"_s},
           {u"ﾔﾏﾀﾞ ﾀﾛｳ"_s, u"ヤマダ タロウ"_s}});
}

TEST(FullWidth, PlainAndSmallKanaTakeTheirSound) {
    Check({{u"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉ"_s, u"アイウエオカキクケコサシスセソタチツテトナニヌネノ"_s},
           {u"ﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ"_s, u"ハヒフヘホマミムメモヤユヨラリルレロワヲン"_s},
           {u"ｧｨｩｪｫｯｬｭｮ"_s, u"ァィゥェォッャュョ"_s},
           {u"ﾀｶ"_s, u"タカ"_s}});
}

TEST(FullWidth, AMarkWithoutAKanaThatTakesItStaysHalfWidth) {
    Check({{u"ﾅﾞ"_s, u"ナﾞ"_s},
           {u"ﾞ"_s, u"ﾞ"_s},
           {u"ﾟ"_s, u"ﾟ"_s},
           {u"ｶﾟ"_s, u"カﾟ"_s},
           {u"ｶﾞﾞ"_s, u"ガﾞ"_s},
           {u"カﾞ"_s, u"カﾞ"_s}});
}

TEST(FullWidth, WhatNoRuleNamesPassesThrough) {
    Check({{u""_s, u""_s},
           {u" "_s, u" "_s},
           {u"\"^`"_s, u"\"^`"_s},
           {u"｡｢｣､･"_s, u"｡｢｣､･"_s},
           {u"要員名簿照会"_s, u"要員名簿照会"_s},
           {u"山A田　1𠮷"_s, u"山Ａ田　１𠮷"_s},
           {u"a b"_s, u"ａ ｂ"_s}});
}
