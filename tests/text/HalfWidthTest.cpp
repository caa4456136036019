#include <gtest/gtest.h>

#include <QStringList>

#include "text/mod文字変換.h"

using namespace Qt::StringLiterals;

namespace {
/// Texts separated by bars and their conversions in the same order.
void Check(const QString& texts, const QString& expected) {
    QStringList converted;
    for (const QString& text : texts.split(u'|')) converted << ToHalfWidthKana(text);
    EXPECT_EQ(converted, expected.split(u'|'));
}
}  // namespace

TEST(HalfWidth, KatakanaTakeTheirHalfWidthForms) {
    Check(
        u"アイウエオカキクケコサシスセソ|タチツテトナニヌネノハヒフヘホ|マミムメモヤユヨラリルレロワヲン|ァィゥェォッャュョ"_s,
        u"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿ|ﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎ|ﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ|ｧｨｩｪｫｯｬｭｮ"_s);
}

TEST(HalfWidth, KanaWithAMarkBecomeTwoCharacters) {
    Check(u"ガギグゲゴ|ザジズゼゾ|ダヂヅデド|バビブベボ|パピプペポ|ヴ"_s,
          u"ｶﾞｷﾞｸﾞｹﾞｺﾞ|ｻﾞｼﾞｽﾞｾﾞｿﾞ|ﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞ|ﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ|ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ|ｳﾞ"_s);
}

TEST(HalfWidth, HiraganaAreConvertedLikeKatakana) {
    Check(u"ぁあぃいん|がぱゔ|やまだ たろう"_s, u"ｧｱｨｲﾝ|ｶﾞﾊﾟｳﾞ|ﾔﾏﾀﾞ ﾀﾛｳ"_s);
}

TEST(HalfWidth, PunctuationAndMarksAreConverted) { Check(u"ー・「」。、゛゜"_s, u"ｰ･｢｣｡､ﾞﾟ"_s); }

TEST(HalfWidth, OtherCharactersStay) {
    Check(u"ヵヶヮ|ゕゖゎ|Ａ１ a1|ｱﾞ|山田𠮷|"_s, u"ヵヶヮ|ゕゖゎ|Ａ１ a1|ｱﾞ|山田𠮷|"_s);
}
