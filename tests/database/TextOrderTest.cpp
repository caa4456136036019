#include "database/collation/TextFolding.h"

#include <gtest/gtest.h>

#include <QString>

using namespace Qt::StringLiterals;
using namespace database;

namespace {

struct Case {
    QString one, other;
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.one.toStdString() << " / " << c.other.toStdString(); }

int Compare(const QString& one, const QString& other) { return CompareTexts(one.toUtf8(), other.toUtf8()); }

class EqualTexts : public testing::TestWithParam<Case> {};
class OrderedTexts : public testing::TestWithParam<Case> {};

}  // namespace

TEST_P(EqualTexts, StandTogether) {
    EXPECT_EQ(Compare(GetParam().one, GetParam().other), 0);
    EXPECT_EQ(Compare(GetParam().other, GetParam().one), 0);
}

INSTANTIATE_TEST_SUITE_P(Folded, EqualTexts,
                         testing::Values(Case{u""_s, u""_s}, Case{u"abc"_s, u"ＡＢＣ"_s}, Case{u"ﾔﾏﾀﾞ"_s, u"やまだ"_s},
                                         Case{u"ヤマダ"_s, u"ﾔﾏﾀﾞ"_s}, Case{u"123-0001"_s, u"１２３－０００１"_s},
                                         Case{u"山田 太郎"_s, u"山田　太郎"_s}, Case{u"𠮷田"_s, u"𠮷田"_s}));

TEST_P(OrderedTexts, StandOneBeforeTheOther) {
    EXPECT_LT(Compare(GetParam().one, GetParam().other), 0);
    EXPECT_GT(Compare(GetParam().other, GetParam().one), 0);
}

INSTANTIATE_TEST_SUITE_P(Kinds, OrderedTexts,
                         testing::Values(Case{u""_s, u"a"_s}, Case{u"a"_s, u"ab"_s}, Case{u"-"_s, u"1"_s},
                                         Case{u"９"_s, u"A"_s}, Case{u"Ｚ"_s, u"ｱ"_s}, Case{u"ん"_s, u"亜"_s},
                                         Case{u"10"_s, u"２"_s}, Case{u"2"_s, u"z"_s}, Case{u"熙"_s, u"鷗"_s},
                                         Case{u"黑"_s, u"𠮷"_s}, Case{u"「"_s, u"０"_s}));

INSTANTIATE_TEST_SUITE_P(Kana, OrderedTexts,
                         testing::Values(Case{u"ｱ"_s, u"い"_s}, Case{u"ｵ"_s, u"カ"_s}, Case{u"ﾝ"_s, u"山"_s},
                                         Case{u"か"_s, u"が"_s}, Case{u"が"_s, u"き"_s}, Case{u"は"_s, u"ば"_s},
                                         Case{u"ば"_s, u"ぱ"_s}, Case{u"ぱ"_s, u"ひ"_s}, Case{u"つ"_s, u"っ"_s},
                                         Case{u"ｶﾞｱ"_s, u"かい"_s}, Case{u"はん"_s, u"ばん"_s},
                                         Case{u"ばあ"_s, u"はい"_s}, Case{u"ユウコ"_s, u"ユーコ"_s},
                                         Case{u"ユーコ"_s, u"ユエ"_s}, Case{u"ｦ"_s, u"ﾝ"_s}));

// Codes: 亜 889F, 田 9363, 山 8E52, 佐 8DB2, 鈴 97E9, 弌 98A8; 髙 FBFC sorts after all of JIS.
INSTANTIATE_TEST_SUITE_P(Kanji, OrderedTexts,
                         testing::Values(Case{u"亜"_s, u"佐藤"_s}, Case{u"佐藤"_s, u"山田"_s},
                                         Case{u"山田"_s, u"田中"_s}, Case{u"田中"_s, u"鈴木"_s},
                                         Case{u"鈴木"_s, u"弌"_s}, Case{u"高"_s, u"髙"_s}, Case{u"弌"_s, u"髙"_s}));
