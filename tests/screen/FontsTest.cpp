#include "screen/SuiteApplication.h"
#include "screen/fonts/Fonts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QPalette>
#include <QProxyStyle>
#include <QStyle>

using namespace Qt::StringLiterals;

TEST(Fonts, FacesFallToTheJapaneseFontsOfTheMachineAndToNoOthers) {
    const QList<QPair<SuiteFace, QStringList>> faces = {
        {SuiteFace::Mincho, {u"ＭＳ 明朝"_s, u"IPAMincho"_s}},
        {SuiteFace::PMincho, {u"ＭＳ Ｐ明朝"_s, u"IPAPMincho"_s}},
        {SuiteFace::Gothic, {u"ＭＳ ゴシック"_s, u"IPAGothic"_s}},
        {SuiteFace::PGothic, {u"ＭＳ Ｐゴシック"_s, u"IPAPGothic"_s}},
    };
    for (const auto& [face, families] : faces) {
        const QFont font = SuiteFont(face, 12);
        EXPECT_EQ(font.family(), families.first());
        EXPECT_TRUE(families.contains(QFontInfo(font).family())) << QFontInfo(font).family().toStdString();
    }
}

TEST(Fonts, PointsAreCountedAtNinetySixDotsAnInch) {
    EXPECT_EQ(SuiteFont(SuiteFace::Mincho, 12).pixelSize(), 16);
    EXPECT_EQ(SuiteFont(SuiteFace::Gothic, 11.25).pixelSize(), 15);
    EXPECT_EQ(SuiteFont(SuiteFace::PGothic, 9).pixelSize(), 12);
}

TEST(Fonts, CaptionColourIsThatOfTheDesign) { EXPECT_EQ(kCaptionColor.rgb(), 0xffffe0c0U); }

TEST(Fonts, LookIsLightWhateverTheDesktopSays) {
    const QPalette kept = QApplication::palette();
    QPalette dark(Qt::black);
    QApplication::setPalette(dark);
    ApplySuiteStyle(*static_cast<QApplication*>(QCoreApplication::instance()));
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        EXPECT_GT(palette.color(group, QPalette::Window).lightness(), 200);
        EXPECT_GT(palette.color(group, QPalette::Base).lightness(), 200);
        EXPECT_LT(palette.color(group, QPalette::WindowText).lightness(), 160);
    }
    const auto* style = qobject_cast<const QProxyStyle*>(QApplication::style());
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->baseStyle()->name(), u"fusion"_s);
    QApplication::setPalette(kept);
}
