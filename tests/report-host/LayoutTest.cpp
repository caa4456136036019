#include <gtest/gtest.h>

#include "report-host/layout/ReportPages.h"
#include "report-host/template/TemplateFile.h"
#include "report-host/template/TemplateParser.h"

using namespace Qt::StringLiterals;
using namespace report;

TEST(Layout, LabelsStandTwoBesideEachOtherAndSixBelow) {
    const TemplateDefinition sheet = ParseTemplate(StandardTemplate(u"要員名簿照会宛名ラベル"_s)).definition;
    EXPECT_EQ(RowsPerPage(sheet), 6);
    for (int row = 0; row < 6; ++row) {
        const QList<QPointF> cells = CellsOfSlot(sheet, row);
        ASSERT_EQ(cells.size(), 2);
        EXPECT_NEAR(cells[0].x(), 18.6, 1e-9);
        EXPECT_NEAR(cells[1].x(), 18.6 + 86.4, 1e-9);
        EXPECT_NEAR(cells[0].y(), 21.2 + row * 42.3, 1e-9);
        EXPECT_NEAR(cells[1].y(), cells[0].y(), 1e-9);
    }
}

TEST(Layout, RowsWithoutPrefixesFillTheCellsLineByLine) {
    const TemplateDefinition sheet =
        ParseTemplate(u"用紙 A4\n升目 横=3 縦=2 左=5 上=7 横間隔=60 縦間隔=50\n明細 高さ=50"_s).definition;
    EXPECT_EQ(RowsPerPage(sheet), 6);
    EXPECT_EQ(CellsOfSlot(sheet, 2), QList<QPointF>{QPointF(125, 7)});
    EXPECT_EQ(CellsOfSlot(sheet, 3), QList<QPointF>{QPointF(5, 57)});
}

TEST(Layout, RowsPerPageCountsMarginsHeadAndFoot) {
    struct Case {
        const char16_t* sections;
        int rows;
    };
    for (const Case& c :
         {Case{u"明細 高さ=29.7", 10}, Case{u"明細 高さ=29.8", 9}, Case{u"余白 上=10 下=7\n明細 高さ=10", 28},
          Case{u"頁頭 高さ=20\n頁脚 高さ=7\n明細 高さ=27", 10}})
        EXPECT_EQ(RowsPerPage(ParseTemplate(u"用紙 A4\n"_s + QString::fromUtf16(c.sections)).definition), c.rows);
    EXPECT_EQ(RowsPerPage(ParseTemplate(StandardTemplate(u"要員名簿照会"_s)).definition), 23);
}

TEST(EraToday, YearCountsFromTheCalendarYearInWhichTheEraBegan) {
    const QList<EraStart> eras{{QDate(1989, 1, 8), u"平成"_s}, {QDate(2019, 5, 1), u"令和"_s}};
    EXPECT_EQ(EraDate(QDate(2026, 11, 21), eras), u"令和08年11月21日"_s);
    EXPECT_EQ(EraDate(QDate(2019, 5, 1), eras), u"令和01年05月01日"_s);
    EXPECT_EQ(EraDate(QDate(2019, 4, 30), eras), u"平成31年04月30日"_s);
    EXPECT_EQ(EraDate(QDate(1988, 12, 31), eras), u"1988年12月31日"_s);
    EXPECT_EQ(EraDate(QDate(2026, 1, 2), {}), u"2026年01月02日"_s);
}
