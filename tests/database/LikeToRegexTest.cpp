#include "database/collation/LikePattern.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include "database/collation/TextFolding.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

const QStringList kTexts = {u""_s,         u"a"_s,       u"Ａ"_s,
                            u"ｶ"_s,        u"か"_s,      u"ｶﾞ"_s,
                            u"が"_s,       u"か゛"_s,    u"カ\u3099"_s,
                            u"ﾞ"_s,        u"ｶﾞﾞ"_s,     u"は゜は"_s,
                            u"ﾊﾟﾊ"_s,      u"ｳﾞｨ"_s,     u"山田"_s,
                            u"𠮷田"_s,     u"山\n田"_s,  u"100%"_s,
                            u"a_b"_s,      u"a\\b"_s,    u"[x]"_s,
                            u"x^$.*+?("_s, u"it's"_s,    u"Ω"_s,
                            u"K"_s,        u"ﾔﾏﾀﾞﾀﾛｳ"_s, u"やまた゛たろう"_s,
                            u"\uFEFF山"_s};
const QStringList kPatterns = {
    u""_s,      u"%"_s,   u"%%"_s,  u"_"_s,        u"__"_s,        u"%_%_%"_s,     u"a"_s,       u"%か%"_s,
    u"%が%"_s,  u"カ"_s,  u"ｶﾞ"_s,  u"%ﾞ%"_s,      u"[か-く]"_s,   u"[!か-く]%"_s, u"[がぎ]%"_s, u"[!が]"_s,
    u"%[ﾞ]%"_s, u"[]"_s,  u"[!]"_s, u"[z-a]"_s,    u"[[]x]"_s,     u"%田"_s,       u"山%田"_s,   u"[𠮷山]田"_s,
    u"%\\%"_s,  u"%^%"_s, u"%.%"_s, u"x^$.*+?("_s, u"k"_s,         u"ω"_s,         u"%だ%う"_s,  u"_%_ﾞ"_s,
    u"ば%"_s,   u"ぱ_"_s, u"%'%"_s, u"%\uFEFF%"_s, u"[!\uFEFF]%"_s};

QString Folded(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    QString folded;
    for (FoldedReader reader(utf8); !reader.AtEnd();) {
        const char32_t character = reader.Next();
        folded += QChar::fromUcs4(character);
    }
    return folded;
}

bool Matches(const QString& expression, const QString& text) {
    const QRegularExpression compiled(expression, QRegularExpression::UseUnicodePropertiesOption);
    EXPECT_TRUE(compiled.isValid()) << expression.toStdString() << ": " << compiled.errorString().toStdString();
    return compiled.match(text).hasMatch();
}

}  // namespace

TEST(PatternText, ExpressionsTakeExactlyWhatThePatternTakes) {
    for (const QString& pattern : kPatterns) {
        const LikePattern compiled = *LikePattern::Compile(pattern.toUtf8());
        for (const QString& text : kTexts) {
            const bool taken = compiled.Matches(text.toUtf8());
            EXPECT_EQ(Matches(StoredExpression(compiled), text), taken)
                << pattern.toStdString() << " / " << text.toStdString();
            // PCRE's "$" also matches before a final newline.
            const QString folded = FoldedExpression(compiled).replace(QRegularExpression(u"\\$$"_s), u"\\z"_s);
            EXPECT_EQ(Matches(folded, Folded(text)), taken) << pattern.toStdString() << " / " << text.toStdString();
        }
    }
}

TEST(PatternText, APlainLikeHasNoWaysToEscapeItsWildcards) {
    const auto plain = [](const QString& pattern, std::optional<char32_t> escape = {}) {
        return FoldedLikeText(*LikePattern::Compile(pattern.toUtf8(), escape));
    };
    EXPECT_EQ(plain(u"%ﾔＡ_%"_s), u"%やa_%"_s);
    EXPECT_EQ(plain(u"[ab]"_s), std::nullopt);
    EXPECT_EQ(plain(u"5\\%"_s, U'\\'), std::nullopt);
    EXPECT_EQ(plain(u"5\\%"_s), u"5\\%"_s);
}

TEST(PatternText, LongPatternsAndTextsTakeNoTimeThatGrowsBeyondThem) {
    const LikePattern compiled = *LikePattern::Compile(u"%a%a%a%a%a%a%a%a%a%b"_s.toUtf8());
    EXPECT_FALSE(Matches(StoredExpression(compiled), QString(2000, u'a')));
}
