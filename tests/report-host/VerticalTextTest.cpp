#include "report-host/layout/VerticalText.h"

#include <gtest/gtest.h>

#include "report-host/layout/TextLayout.h"
#include "report-host/render/FontSet.h"

using namespace Qt::StringLiterals;
using namespace report;

namespace {

struct Written {
    const char16_t *text, *vertical;
};
class VerticalWritingTest : public testing::TestWithParam<Written> {};

/// Vertical text as on mail, with kanji numerals.
QString OnMail(const QString& text) { return ToVerticalText(ToKanjiNumerals(text)); }

/// The runs of a converted text, separated by "|"; "=" marks one that is side by side, "~" a rotated one.
QString Runs(const QString& text) {
    QStringList runs;
    for (const VerticalRun& run : VerticalRunsOf(text)) {
        const QString mode = run.mode == RunMode::Upright ? u""_s : run.mode == RunMode::Rotated ? u"~"_s : u"="_s;
        runs.append(mode + text.mid(run.begin, run.end - run.begin));
    }
    return runs.join(u'|');
}

class VerticalLayoutTest : public testing::Test {
  protected:
    VerticalLayoutTest() {
        style.points = 10;
        style.leastPoints = 5;
        style.vertical = true;
        style.fitting = Fitting::Wrap;
    }
    FittedText Fit(const QString& text, double length, double depth = 100) {
        return FitText(fonts, text, style, {length * kMillimetresPerPoint, depth * kMillimetresPerPoint});
    }
    QStringList Lines(const QString& text, double length, double depth = 100) {
        QStringList lines;
        for (const auto& line : Fit(text, length, depth).lines) lines.append(line->text);
        return lines;
    }

    FontSet fonts;
    TextStyle style;
};

}  // namespace

TEST_P(VerticalWritingTest, ConvertsAndDividesIntoRuns) {
    EXPECT_EQ(Runs(OnMail(QString::fromUtf16(GetParam().text))), QString::fromUtf16(GetParam().vertical));
}

INSTANTIATE_TEST_SUITE_P(
    Mail, VerticalWritingTest,
    testing::Values(Written{u"梅田9-4-10", u"梅田九－四－一〇"},
                    Written{u"梅田９−４‐１０–２―３ー１－５", u"梅田九－四－一〇－二－三－一－五"},
                    Written{u"ガーデンタワー3", u"ガーデンタワー三"}, Written{u"東京―大阪", u"東京―大阪"},
                    Written{u"緑荘B-205", u"緑荘Ｂ－二〇五"}, Written{u"ＮＴＴ東日本", u"=NTT|東日本"},
                    Written{u"JRタワー5F", u"=JR|タワー五Ｆ"}, Written{u"コーポII", u"コーポ|=II"},
                    Written{u"ＨＥＩＧＨＴＳ　ＴＯＷＥＲ２０５", u"~HEIGHTS TOWER205"},
                    Written{u"12 Main Street", u"~12 Main Street"}, Written{u"John Lee 様", u"~John Lee| 様"},
                    Written{u"梅田1-2 ABC Tower 5階", u"梅田一－二 |~ABC Tower| 五階"},
                    Written{u"（Green Heights）", u"（|~Green Heights|）"},
                    Written{u"Tower (North) 3F", u"~Tower (North) 3F"},
                    Written{u"Mary-Jane O'Brien", u"~Mary-Jane O'Brien"},
                    Written{u"Dr. Al Lee Jr.", u"~Dr. Al Lee Jr."}, Written{u"Søren Ågård", u"~Søren Ågård"},
                    Written{u"“別館”と\"本館\"", u"〝別館〟と〝本館〟"}, Written{u"｢関内｣ﾋﾞﾙ", u"「関内」ビル"},
                    Written{u"A\nB棟", u"Ａ\nＢ棟"}));

TEST(VerticalNumbers, OfUpToThreeDigitsStandUprightAndLongerOnesAreRotatedAsAWhole) {
    for (const auto& [text, runs] : QList<QPair<QString, QString>>{{u"第3課"_s, u"第３課"_s},
                                                                   {u"第１２課"_s, u"第|=12|課"_s},
                                                                   {u"205号"_s, u"=205|号"_s},
                                                                   {u"2026年"_s, u"~2026|年"_s},
                                                                   {u"9-４－205"_s, u"９－４－|=205"_s},
                                                                   {u"03－5555-0100"_s, u"~03-5555-0100"_s},
                                                                   {u"1,000円"_s, u"~1,000|円"_s},
                                                                   {u"12F"_s, u"=12F"_s}})
        EXPECT_EQ(Runs(ToVerticalText(text)), runs);
}

TEST_F(VerticalLayoutTest, WordOfThreeLettersTakesOneCharacterAndIsNotWiderThanIt) {
    const auto line = fonts.Shape(u"東NTT西12"_s, SuiteFace::Mincho, true);
    EXPECT_NEAR(line->length, 4, 1e-6);
    ASSERT_EQ(line->glyphs.size(), 7);
    EXPECT_EQ(line->cells, 4);
    for (qsizetype i = 1; i <= 3; ++i) {
        const ShapedGlyph& letter = line->glyphs[i];
        EXPECT_FALSE(letter.rotated);
        EXPECT_EQ(letter.cell, 1);
        EXPECT_NEAR(letter.stretch, 2.0 / 3, 0.01);
        EXPECT_NEAR(letter.at.x(), -0.5 + static_cast<double>(i - 1) / 3, 0.01);
        EXPECT_NEAR(letter.at.y(), 1 + kAboveBaseline, 1e-6);
    }
    EXPECT_EQ(line->glyphs[5].stretch, 1);
    EXPECT_NEAR(line->glyphs[5].at.x(), -0.5, 0.01);
    EXPECT_NEAR(line->glyphs[6].at.x(), 0, 0.01);
}

TEST_F(VerticalLayoutTest, LatinNameIsRotatedInOneLineOfLettersInTheirOrder) {
    const FittedText name = Fit(u"Christopher Montgomery 様"_s, 300);
    ASSERT_EQ(name.lines.size(), 1);
    const QList<ShapedGlyph>& glyphs = name.lines[0]->glyphs;
    for (qsizetype i = 0; i < 22; ++i) {
        EXPECT_TRUE(glyphs[i].rotated) << i;
        EXPECT_NEAR(glyphs[i].at.x(), 0.5 - kAboveBaseline, 0.01) << "the middle of the line";
        if (i > 0) {
            EXPECT_GT(glyphs[i].at.y(), glyphs[i - 1].at.y());
        }
    }
    EXPECT_FALSE(glyphs.last().rotated);
}

TEST_F(VerticalLayoutTest, RotatedNameGetsSmallerBeforeItIsNarrowerThanThreeQuarters) {
    style.fitting = Fitting::Condense;
    const FittedText name = Fit(u"Wolfeschlegelsteinhausenbergerdorff"_s, 100);
    EXPECT_NEAR(name.stretch, 0.75, 1e-6);
    EXPECT_LT(name.size, 10 * kMillimetresPerPoint);
    EXPECT_EQ(Fit(QString(u"勘解由小路長次郎左衛門尉太郎"_s), 70).stretch, kNarrowest);
}

TEST_F(VerticalLayoutTest, EveryDashOfAHouseNumberHasTheSameLengthAndDirection) {
    style.kanjiNumerals = true;
    const FittedText text = Fit(u"1-2－3−4‐5–6―7ー8"_s, 300);
    const QList<ShapedGlyph>& glyphs = text.lines[0]->glyphs;
    ASSERT_EQ(glyphs.size(), 15);
    for (qsizetype i = 1; i < 15; i += 2) {
        EXPECT_EQ(glyphs[i].glyph, glyphs[1].glyph) << i;
        EXPECT_TRUE(glyphs[i].rotated) << i;
        EXPECT_NEAR(glyphs[i].at.y() - glyphs[i - 1].at.y(), glyphs[1].at.y() - glyphs[0].at.y(), 1e-6) << i;
    }
}

TEST_F(VerticalLayoutTest, MarkForAMissingCharacterIsUpright) {
    const auto level = fonts.Shape(u"〓"_s, SuiteFace::Mincho, false);
    const auto vertical = fonts.Shape(u"「〓」〓"_s, SuiteFace::Mincho, true);
    EXPECT_EQ(vertical->glyphs[1].glyph, level->glyphs[0].glyph);
    EXPECT_EQ(vertical->glyphs[3].glyph, level->glyphs[0].glyph);
    EXPECT_FALSE(vertical->glyphs[1].rotated);
    EXPECT_NE(vertical->glyphs[2].glyph, fonts.Shape(u"」"_s, SuiteFace::Mincho, false)->glyphs[0].glyph);
}

TEST_F(VerticalLayoutTest, BracketsAndQuotationMarksHaveTheirVerticalShapes) {
    style.kanjiNumerals = true;
    const FittedText text = Fit(u"(仮)｢関｣“別”【本】＜一＞"_s, 300);
    const auto& line = *text.lines[0];
    EXPECT_EQ(line.text, u"（仮）「関」〝別〟【本】＜一＞"_s);
    for (qsizetype i = 0; i < line.glyphs.size(); ++i) {
        const bool isSign = !u"仮関別本一"_s.contains(line.text[i]);
        const auto level = fonts.Shape(line.text.mid(i, 1), SuiteFace::Mincho, false);
        EXPECT_EQ(line.glyphs[i].glyph != level->glyphs[0].glyph || line.glyphs[i].rotated, isSign) << i;
    }
}

TEST_F(VerticalLayoutTest, LineIsBrokenNeitherInANumberNorInALatinWord) {
    style.kanjiNumerals = true;
    EXPECT_EQ(Lines(u"大阪市北区梅田９−４‐１０"_s, 90, 23), (QStringList{u"大阪市北区梅田"_s, u"九－四－一〇"_s}));
    EXPECT_EQ(Lines(u"緑荘ハイツＢ－２０５"_s, 60, 23), (QStringList{u"緑荘ハイツ"_s, u"Ｂ－二〇五"_s}));
    EXPECT_EQ(Lines(u"緑荘ハイツ２０５号室"_s, 90, 23), (QStringList{u"緑荘ハイツ"_s, u"二〇五号室"_s}));
    EXPECT_EQ(Lines(u"Mountain View, Jean-Pierre Street"_s, 80, 50),
              (QStringList{u"Mountain View,"_s, u"Jean-Pierre"_s, u"Street"_s}));
    style.kanjiNumerals = false;
    EXPECT_EQ(Lines(u"梅田ビルディング2階NTT西日本"_s, 105, 23),
              (QStringList{u"梅田ビルディング２階"_s, u"NTT西日本"_s}));
    style.vertical = false;
    EXPECT_EQ(Lines(u"大手町ＡＢＣ本社"_s, 55, 40), (QStringList{u"大手町"_s, u"ＡＢＣ本社"_s}));
}

TEST_F(VerticalLayoutTest, TextIsSmallerRatherThanBrokenInAWord) {
    const FittedText text = Fit(u"Invalidenstraße"_s, 60, 40);
    EXPECT_EQ(text.lines.size(), 1);
    EXPECT_LT(text.size, 10 * kMillimetresPerPoint);
    EXPECT_GT(Fit(QString(200, u'A'), 60, 400).lines.size(), 1) << "no size would keep it whole";
}

TEST_F(VerticalLayoutTest, WrappedBuildingKeepsItsIndentation) {
    const FittedText text = Fit(u"大阪市北区梅田\n　　名古屋城北マンション弐番館"_s, 100, 60);
    ASSERT_EQ(text.lines.size(), 3);
    EXPECT_EQ(text.lines[1]->text, u"　　名古屋城北マン"_s);
    const QString second = text.lines[2]->text;
    EXPECT_EQ(second, u"ション弐番館"_s);
    EXPECT_NEAR(text.lines[2]->glyphs[0].at.y(), text.lines[1]->glyphs[2].at.y(), 1e-6);
    EXPECT_NEAR(text.lines[2]->length, 2 + static_cast<double>(second.size()), 1e-6);
    EXPECT_LE(text.lines[2]->length * text.size, 100 * kMillimetresPerPoint + 1e-6);
}

TEST_F(VerticalLayoutTest, BlanksAtTheEndOfALineTakeNoSpace) {
    EXPECT_EQ(Lines(u"東京都　大阪府　京都府"_s, 30, 60), (QStringList{u"東京都"_s, u"大阪府"_s, u"京都府"_s}));
}

TEST_F(VerticalLayoutTest, MissingBuildingTakesNoLine) {
    EXPECT_EQ(Lines(u"大阪市北区梅田\n　　"_s, 100, 10), QStringList{u"大阪市北区梅田"_s});
}

TEST_F(VerticalLayoutTest, TextHasNoMoreLinesThanItMay) {
    style.mostLines = 2;
    const FittedText text = Fit(QString(30, u'長'), 100, 100);
    EXPECT_EQ(text.lines.size(), 2);
    EXPECT_NEAR(text.lines[0]->length * text.size, 100 * kMillimetresPerPoint, 5);
    EXPECT_LT(text.size, 10 * kMillimetresPerPoint);
}
