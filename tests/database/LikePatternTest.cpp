#include "database/collation/LikePattern.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QString>
#include <thread>

using namespace Qt::StringLiterals;
using namespace database;

namespace {

struct Case {
    QString pattern, text;
    bool matches;
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.text.toStdString() << " LIKE " << c.pattern.toStdString(); }

bool Like(const QString& pattern, const QString& text) {
    const auto compiled = LikePattern::Compile(pattern.toUtf8());
    return compiled && compiled->Matches(text.toUtf8());
}

class LikePatterns : public testing::TestWithParam<Case> {};

}  // namespace

TEST_P(LikePatterns, MatchAsTheDesktopEngineDoes) {
    EXPECT_EQ(Like(GetParam().pattern, GetParam().text), GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(
    Folding, LikePatterns,
    testing::Values(Case{u"%ヤマダ%"_s, u"ﾔﾏﾀﾞ ﾀﾛｳ"_s, true}, Case{u"%やまだ%"_s, u"ﾔﾏﾀﾞ ﾀﾛｳ"_s, true},
                    Case{u"%ﾔﾏﾀﾞ%"_s, u"ﾔﾏﾀﾞ ﾀﾛｳ"_s, true}, Case{u"%ﾔﾏﾀﾞ%"_s, u"やまだ　たろう"_s, true},
                    Case{u"%ヤマタ%"_s, u"ﾔﾏﾀﾞ"_s, false}, Case{u"%ヤマダ%"_s, u"ﾔﾏﾀ"_s, false},
                    Case{u"カ"_s, u"ガ"_s, false}, Case{u"ｶﾞ"_s, u"ガ"_s, true}, Case{u"が"_s, u"か\u3099"_s, true},
                    Case{u"ぱ"_s, u"ﾊﾟ"_s, true}, Case{u"は"_s, u"ﾊﾟ"_s, false}, Case{u"ヴ"_s, u"ｳﾞ"_s, true},
                    Case{u"a"_s, u"Ａ"_s, true}, Case{u"Ａ"_s, u"a"_s, true}, Case{u"ａ"_s, u"A"_s, true},
                    Case{u"123-4567"_s, u"１２３－４５６７"_s, true}, Case{u"１"_s, u"1"_s, true},
                    Case{u"（株）"_s, u"(株)"_s, true}, Case{u"･"_s, u"・"_s, true}, Case{u"ｰ"_s, u"ー"_s, true},
                    Case{u"ー"_s, u"-"_s, false}, Case{u"ッ"_s, u"ﾂ"_s, false}, Case{u"ｯ"_s, u"っ"_s, true},
                    Case{u"　"_s, u" "_s, true}, Case{u"￥"_s, u"¥"_s, true}, Case{u"я"_s, u"Я"_s, true}));

INSTANTIATE_TEST_SUITE_P(
    Wildcards, LikePatterns,
    testing::Values(Case{u""_s, u""_s, true}, Case{u""_s, u"a"_s, false}, Case{u"%"_s, u""_s, true},
                    Case{u"%%"_s, u"ab"_s, true}, Case{u"a%"_s, u"abc"_s, true}, Case{u"%c"_s, u"abc"_s, true},
                    Case{u"a%c"_s, u"ac"_s, true}, Case{u"ab%bc"_s, u"abc"_s, false}, Case{u"%b%"_s, u"abc"_s, true},
                    Case{u"a_c"_s, u"a漢c"_s, true}, Case{u"a_c"_s, u"ac"_s, false}, Case{u"_"_s, u"𠮷"_s, true},
                    Case{u"_"_s, u"ﾀﾞ"_s, true}, Case{u"%𠮷%"_s, u"𠮷田"_s, true}, Case{u"*"_s, u"abc"_s, false},
                    Case{u"a?c"_s, u"abc"_s, false}, Case{u"a*"_s, u"a*"_s, true},
                    Case{u"%ab%ab%"_s, u"xabyab"_s, true}, Case{u"%ab%ab"_s, u"ab"_s, false},
                    Case{u"%_b"_s, u"ab"_s, true}, Case{u"%_b"_s, u"b"_s, false}, Case{u"%aab%"_s, u"aaab"_s, true}));

INSTANTIATE_TEST_SUITE_P(
    Lists, LikePatterns,
    testing::Values(Case{u"%[ab]%"_s, u"xxb"_s, true}, Case{u"%[ab]%"_s, u"xxc"_s, false},
                    Case{u"[a-c]"_s, u"Ｂ"_s, true}, Case{u"[a-c]"_s, u"d"_s, false}, Case{u"[!a-c]"_s, u"d"_s, true},
                    Case{u"[!a-c]"_s, u"b"_s, false}, Case{u"[!a]"_s, u""_s, false}, Case{u"[0-9]"_s, u"５"_s, true},
                    Case{u"[ア-オ]"_s, u"ｳ"_s, true}, Case{u"[%]"_s, u"%"_s, true}, Case{u"[%]"_s, u"a"_s, false},
                    Case{u"[_]"_s, u"a"_s, false}, Case{u"[[]"_s, u"["_s, true}, Case{u"[a-]"_s, u"-"_s, true},
                    Case{u"[-a]"_s, u"-"_s, true}, Case{u"a[]b"_s, u"ab"_s, true}, Case{u"[!]"_s, u"!"_s, true},
                    Case{u"[^a]"_s, u"^"_s, true}, Case{u"a]"_s, u"a]"_s, true}, Case{u"[！ａ]"_s, u"b"_s, true}));

// In a new thread, since the thread-local buffer must still be unallocated.
TEST(LikePattern, AnyCharactersTwiceMatchAnEmptyTextFromTheFirstOneOn) {
    bool matches = false;
    std::thread([&] { matches = LikePattern::Compile("%%")->Matches(""); }).join();
    EXPECT_TRUE(matches);
}

TEST(LikePattern, ListThatIsNotClosedIsRefused) {
    EXPECT_FALSE(LikePattern::Compile("%[ab%").has_value());
    EXPECT_FALSE(LikePattern::Compile("[").has_value());
}

TEST(LikePattern, EscapedWildcardsAreOrdinary) {
    const auto pattern = LikePattern::Compile("50\\%\\[", U'\\');
    ASSERT_TRUE(pattern.has_value());
    EXPECT_TRUE(pattern->Matches("50%["));
    EXPECT_FALSE(pattern->Matches("50x["));
}

TEST(LikePattern, BytesThatAreNoUtf8MatchOneCharacterEach) {
    const auto pattern = LikePattern::Compile("a__");
    ASSERT_TRUE(pattern.has_value());
    EXPECT_TRUE(pattern->Matches("a\xFF\xE3"));
    EXPECT_TRUE(pattern->Matches("a\xE3\x81"));
}

TEST(LikePattern, ManyWildcardsTakeNoMoreThanTheProductOfBothLengths) {
    const QString pattern = u"%a"_s.repeated(5000) + u"b%"_s;
    const QString text = QString(20000, u'a');
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(Like(pattern, text));
    EXPECT_LT(timer.elapsed(), 2000);
}
