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

TEST(HalfWidth, CombiningMarksOfKanaAreConverted) { Check(u"か\u3099は\u309A|カ\u3099|か\u3099"_s, u"ｶﾞﾊﾟ|ｶﾞ|ｶﾞ"_s); }

TEST(HalfWidthOfAscii, FullWidthFormsBecomeHalfWidth) {
    EXPECT_EQ(ToHalfWidth(u"０１２３４５６７８９ＡＺａｚ　＠．＿／：＋＆＃"_s), u"0123456789AZaz @._/:+&#"_s);
    EXPECT_EQ(ToHalfWidth(u"（）［］｛｝＜＞「」￥‘’“”～〜"_s), u"()[]{}<>｢｣\\''\"\"~~"_s);
}

TEST(HalfWidthOfAscii, DashesBecomeHyphens) {
    EXPECT_EQ(ToHalfWidth(u"－‐‑‒–—―−─ー"_s), u"----------"_s);
    EXPECT_EQ(ToHalfWidth(u"０３ｰ1ｰ"_s), u"03-1-"_s);
    EXPECT_EQ(ToHalfWidth(u"ｱｰｶｰ3ｰ|ｰ"_s), u"ｱｰｶｰ3-|ｰ"_s) << "the prolonged sound of half-width kana stays";
}

TEST(HalfWidthOfAscii, OtherCharactersStay) {
    const QString text = u"山田アあｱ12-a \u3099𠮷🙂é"_s;
    EXPECT_EQ(ToHalfWidth(text), text);
    EXPECT_EQ(ToHalfWidth(QString()), QString());
}

TEST(ComposedKana, MarksJoinTheKanaBeforeThem) {
    EXPECT_EQ(ComposeKana(u"か\u3099は\u309Aカ\u3099う\u3099"_s), u"がぱガゔ"_s);
    EXPECT_EQ(ComposeKana(u"\u3099あ\u3099山\u309Aが\u3099"_s), u"\u3099あ\u3099山\u309Aが\u3099"_s);
    EXPECT_EQ(ComposeKana(u"神\uFA19e\u0301"_s), u"神\uFA19e\u0301"_s) << "kanji stay as they are";
}
