#include <gtest/gtest.h>

#include <QLabel>
#include <QStatusBar>
#include <QtTest/QTest>

#include "report-host/DrawnReport.h"
#include "report-host/ReportFixture.h"
#include "report-host/preview/PreviewWindow.h"
#include "report-host/render/FontAdvice.h"
#include "report-host/render/FontSet.h"

using namespace Qt::StringLiterals;
using namespace report;

namespace {

const QString kPrivate = QString::fromUtf16(u"\xE000"), kUnknown = QString::fromUcs4(U"\U000F0000");

QLabel* NoticeOf(const PreviewWindow& window) { return window.statusBar()->findChild<QLabel*>(u"fontNotice"_s); }

}  // namespace

TEST(MissingCharacters, AreListedOnceWithTheirVariationSelector) {
    FontSet fonts;
    const QString text =
        u"𠮷野家 鷗 髙 葛\U000E0100 葛\U000E01EF "_s + kPrivate + u"子"_s + kUnknown + kPrivate + u"\n"_s;
    EXPECT_EQ(fonts.MissingCharacters(text), (QStringList{u"葛\U000E01EF"_s, kPrivate, kUnknown}));
    EXPECT_EQ(fonts.MissingCharacters({}), QStringList());
}

TEST(MissingCharacters, VariantIsTakenFromTheFontThatHasItAndElsePrintedInItsUsualForm) {
    FontSet fonts;
    const auto usual = fonts.Shape(u"葛"_s, SuiteFace::Mincho, false),
               variant = fonts.Shape(u"葛\U000E0100"_s, SuiteFace::Mincho, false),
               unknown = fonts.Shape(u"葛\U000E01EF"_s, SuiteFace::Mincho, false);
    EXPECT_NE(variant->glyphs[0].face, usual->glyphs[0].face);
    EXPECT_TRUE(variant->glyphs[0].face->HasVariant(U'葛', 0xE0100));
    EXPECT_EQ(unknown->glyphs[0].face, usual->glyphs[0].face);
    EXPECT_EQ(unknown->glyphs[0].glyph, usual->glyphs[0].glyph);
    EXPECT_EQ(unknown->length, usual->length);
    EXPECT_EQ(fonts.Printable(u"葛\U000E01EF"_s, SuiteFace::Mincho), u"葛\U000E01EF"_s);
}

TEST(MissingCharacters, FontOfTheSystemIsTakenIfTheReportsOwnLackTheCharacter) {
    FontSet fonts;
    const QString letter = u"ⴰ"_s;  // Tifinagh, in DejaVu Sans
    const bool isInstalled = fonts.MissingCharacters(letter).isEmpty();
    EXPECT_EQ(fonts.Printable(letter, SuiteFace::Mincho), isInstalled ? letter : u"〓"_s);
}

TEST(FontAdvice, NamesCharactersByCodeAndFontsByPackage) {
    EXPECT_EQ(NameOfCharacter(u"𠮷"_s), u"「𠮷」U+20BB7"_s);
    EXPECT_EQ(NameOfCharacter(u"葛\U000E0100"_s), u"「葛\U000E0100」U+845B U+E0100"_s);
    EXPECT_EQ(NameOfCharacter(kPrivate), u"U+E000"_s);
    EXPECT_EQ(FontsToInstall({u"한"_s, kPrivate, u"글"_s, u"ก"_s}),
              u"Noto CJK (fonts-noto-cjk)、外字の書体、Noto (fonts-noto-core)"_s);
    EXPECT_EQ(FontsToInstall({u"葛\U000E01EF"_s}), u"その漢字を持つ書体"_s);
    EXPECT_EQ(FontsToInstall({}), QString());
}

TEST(FontNotice, PreviewNamesCharactersWithoutAFontAndTheFontsToInstall) {
    const TestServices services;
    auto report = std::make_unique<DrawnReport>(40);
    report->missing = {{30, {kPrivate}}, {36, {u"한"_s, kPrivate}}, {39, {u"ก"_s, kUnknown}}};
    PreviewWindow window(std::move(report), u"要員名簿照会"_s, u"/nowhere/repfrmdb.accdb"_s);
    window.show();
    QLabel* notice = NoticeOf(window);
    ASSERT_NE(notice, nullptr);
    const QString whole =
        u"書体にない文字があります（31 ページから）: U+E000、「한」U+D55C、「ก」U+0E01 ほか　"
        u"インストールする書体: 外字の書体、Noto CJK (fonts-noto-cjk)、Noto (fonts-noto-core)"_s;
    EXPECT_TRUE(QTest::qWaitFor([&] { return notice->isVisible() && notice->text() == whole; }))
        << notice->text().toStdString();
    EXPECT_TRUE(notice->toolTip().contains(u"U+F0000"_s));
}

TEST(FontNotice, IsHiddenIfEveryCharacterHasAFont) {
    const TestServices services;
    PreviewWindow window(std::make_unique<DrawnReport>(3), u"要員名簿照会"_s, u"/nowhere/repfrmdb.accdb"_s);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_FALSE(NoticeOf(window)->isVisible());
}

TEST_F(ReportTest, MissingCharactersOfAPageAreThoseOfItsRows) {
    WorkRow row{{u"コード"_s, u"1"_s}, {u"氏名"_s, u"山田"_s}};
    AddRows(kList, 23, row);
    row[u"氏名"_s] = u"山田"_s + kUnknown;
    AddRow(kList, row);
    const auto report = Prepare(kList);
    EXPECT_EQ(report->MissingCharacters(0), QStringList());
    EXPECT_EQ(report->MissingCharacters(1), QStringList{kUnknown});
}
