#include "report-host/layout/TextLayout.h"
#include "report-host/layout/VerticalText.h"

#include <gtest/gtest.h>

#include <QSizeF>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace report;

namespace {

class TextLayoutTest : public testing::Test {
  protected:
    TextLayoutTest() {
        style.points = 10;
        style.leastPoints = 5;
    }
    /// Converts points to millimetres.
    static double Points(double points) { return points * kMillimetresPerPoint; }
    FittedText Fit(const QString& text, double length, double depth = 100) {
        return FitText(types, text, style, {length, depth});
    }
    /// Length of a line of the laid out text, in millimetres.
    static double Length(const FittedText& text, qsizetype line = 0) {
        return text.lines[line]->length * text.size * text.stretch;
    }

    FontSet types;
    TextStyle style;
    const QString ten = u"一二三四五六七八九十"_s;
};

/// Number of characters of a line: these texts have one glyph for each character.
qsizetype Count(const FittedText& text, qsizetype line = 0) { return text.lines[line]->glyphs.size(); }

}  // namespace

TEST_F(TextLayoutTest, WhatFitsKeepsItsSize) {
    const FittedText text = Fit(ten, Points(100));
    EXPECT_NEAR(text.size, Points(10), 1e-9);
    EXPECT_EQ(text.stretch, 1);
    EXPECT_NEAR(Length(text), Points(100), 1e-6);
}

TEST_F(TextLayoutTest, LongTextShrinksToItsPlace) {
    const FittedText text = Fit(ten, Points(80));
    EXPECT_NEAR(text.size, Points(8), 1e-6);
    EXPECT_EQ(Count(text), 10);
}

TEST_F(TextLayoutTest, TextBeyondTheSmallestSizeEndsInASign) {
    const FittedText text = Fit(ten + ten + ten, Points(50));
    EXPECT_NEAR(text.size, Points(5), 1e-9);
    EXPECT_EQ(Count(text), 10);
    EXPECT_EQ(text.lines[0]->glyphs.last().glyph, types.Shape(u"…"_s, style.face, false)->glyphs[0].glyph);
    EXPECT_LE(Length(text), Points(50) + 1e-6);
}

TEST_F(TextLayoutTest, LongNameIsCondensedBeforeItGetsSmaller) {
    style.fitting = Fitting::Condense;
    const FittedText narrow = Fit(ten, Points(60));
    EXPECT_NEAR(narrow.stretch, 0.6, 1e-6);
    EXPECT_NEAR(narrow.size, Points(10), 1e-9);
    const FittedText smaller = Fit(ten, Points(40));
    EXPECT_EQ(smaller.stretch, kNarrowest);
    EXPECT_NEAR(smaller.size, Points(8), 1e-6);
    EXPECT_EQ(Count(Fit(ten + ten, Points(40))), 16);
}

TEST_F(TextLayoutTest, CutKeepsTheSizeAndSaysThatItCut) {
    style.fitting = Fitting::Cut;
    const FittedText text = Fit(ten, Points(45));
    EXPECT_NEAR(text.size, Points(10), 1e-9);
    EXPECT_EQ(Count(text), 4);
}

TEST_F(TextLayoutTest, CutNeverHalvesACharacterOfTwoUnits) {
    style.fitting = Fitting::Cut;
    const FittedText text = Fit(u"𠮷𠮷𠮷"_s, Points(25));
    ASSERT_EQ(Count(text), 2);
    EXPECT_EQ(text.lines[0]->glyphs[0].glyph, types.Shape(u"𠮷"_s, style.face, false)->glyphs[0].glyph);
}

TEST_F(TextLayoutTest, AddressIsBrokenIntoLinesAndItsNumbersStayWhole) {
    style.fitting = Fitting::Wrap;
    const FittedText text = Fit(u"大阪市北区梅田９－４－１０"_s, Points(90), Points(23));
    ASSERT_EQ(text.lines.size(), 2);
    EXPECT_NEAR(text.size, Points(10), 1e-9);
    EXPECT_EQ(Count(text, 0), 7);
    EXPECT_EQ(Count(text, 1), 6);
}

TEST_F(TextLayoutTest, AddressOfTwoHundredCharactersShrinksAndThenEndsInASign) {
    style.fitting = Fitting::Wrap;
    const QString address(200, u'長');
    const FittedText whole = Fit(address, Points(200), Points(60));
    EXPECT_LT(whole.size, Points(10));
    qsizetype characters = 0;
    for (qsizetype i = 0; i < whole.lines.size(); ++i) {
        characters += Count(whole, i);
        EXPECT_LE(Length(whole, i), Points(200) + 1e-6);
    }
    EXPECT_EQ(characters, 200);
    const FittedText cut = Fit(address, Points(100), Points(12));
    ASSERT_EQ(cut.lines.size(), 2);
    EXPECT_EQ(cut.lines[1]->glyphs.last().glyph, types.Shape(u"…"_s, style.face, false)->glyphs[0].glyph);
}

// Performance: shaping all of the text at every size takes from a second to minutes.
TEST_F(TextLayoutTest, TextOfThreeHundredThousandCharactersIsCutBeforeItIsFitted) {
    style.points = 2000;
    style.leastPoints = 0.5;
    style.lineStep = 0.1;
    const QStringList texts{QString(300'000, u'長'), u"長い文 "_s.repeated(75'000), u"a\n"_s.repeated(150'000),
                            u"葛\U000E0100"_s.repeated(100'000), u"i𠮷"_s.repeated(100'000)};
    for (const Fitting fitting : {Fitting::Shrink, Fitting::Condense, Fitting::Wrap, Fitting::Cut}) {
        style.fitting = fitting;
        for (const QSizeF place : {QSizeF(2000, 2000), QSizeF(60, 20), QSizeF(0.001, 2000), QSizeF(2000, 0.001)})
            for (const QString& text : texts) {
                const auto begin = std::chrono::steady_clock::now();
                const FittedText fitted = Fit(text, place.width(), place.height());
                EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
                qsizetype glyphs = 0;
                for (qsizetype i = 0; i < fitted.lines.size(); ++i) glyphs += Count(fitted, i);
                EXPECT_LE(glyphs, 20'001);
                EXPECT_EQ(fitted.lines.last()->glyphs.last().glyph,
                          types.Shape(u"…"_s, style.face, false)->glyphs[0].glyph);
            }
    }
}

TEST_F(TextLayoutTest, WhatIsCutBeforehandLooksAsIfItHadBeenFittedWhole) {
    const QString line = u"勘解由小路長次郎左衛門尉太郎"_s.repeated(50);
    for (const Fitting fitting : {Fitting::Shrink, Fitting::Condense, Fitting::Wrap, Fitting::Cut}) {
        style.fitting = fitting;
        const FittedText some = Fit(line, Points(100), Points(22));
        const FittedText all = Fit(line.repeated(40), Points(100), Points(22));
        EXPECT_EQ(some.size, all.size);
        ASSERT_EQ(some.lines.size(), all.lines.size());
        EXPECT_EQ(Count(some, some.lines.size() - 1), Count(all, all.lines.size() - 1));
    }
}

TEST_F(TextLayoutTest, TextIsNeverHigherThanItsPlace) { EXPECT_NEAR(Fit(u"あ"_s, 100, 2).size, 2, 1e-9); }

TEST_F(TextLayoutTest, VerticalTextRunsDownwardsAndTurnsTheDashOfHouseNumbers) {
    style.vertical = true;
    style.kanjiNumerals = true;
    const FittedText text = Fit(u"9－４号"_s, 100);
    const QList<ShapedGlyph>& glyphs = text.lines[0]->glyphs;
    ASSERT_EQ(glyphs.size(), 4);
    EXPECT_EQ(glyphs[0].glyph, types.Shape(u"九"_s, style.face, false)->glyphs[0].glyph);
    for (qsizetype i = 0; i < 4; ++i) EXPECT_EQ(glyphs[i].rotated, i == 1);
    for (qsizetype i = 1; i < 4; ++i) EXPECT_GT(glyphs[i].at.y(), glyphs[i - 1].at.y());
}

TEST_F(TextLayoutTest, VerticalTextTakesTheUprightFormsOfBracketsAndStops) {
    const auto level = types.Shape(u"「、ー」"_s, style.face, false),
               upright = types.Shape(u"「、ー」"_s, style.face, true);
    ASSERT_EQ(upright->glyphs.size(), 4);
    for (qsizetype i = 0; i < 4; ++i) {
        EXPECT_NE(upright->glyphs[i].glyph, level->glyphs[i].glyph);
        EXPECT_FALSE(upright->glyphs[i].rotated);
    }
}

TEST_F(TextLayoutTest, CharacterThatNoFontHasBecomesTheMarkForOne) {
    EXPECT_EQ(types.Printable(u"山\U000F0000田"_s, SuiteFace::Mincho), u"山〓田"_s);
    EXPECT_EQ(types.Printable(u"森鷗外𠮷"_s, SuiteFace::Gothic), u"森鷗外𠮷"_s);
}

TEST(VerticalText, DigitsBecomeNumeralsAndNarrowCharactersWide) {
    EXPECT_EQ(ToKanjiNumerals(u"10-２０５号"_s), u"一〇-二〇五号"_s);
    EXPECT_EQ(ToVerticalText(u"ｶﾞｰﾃﾞﾝB-2｢ｱ｣ 様"_s), u"ガーデンＢ－２「ア」 様"_s);
}
