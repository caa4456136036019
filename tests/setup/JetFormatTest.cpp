#include "setup/JetFormat.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using setup::JetDate;

TEST(JetDates, DaysCountFromTheLastDayButOneOf1899) {
    EXPECT_EQ(JetDate(0, false), u"18991230"_s);
    EXPECT_EQ(JetDate(1, false), u"18991231"_s);
    EXPECT_EQ(JetDate(36'526, false), u"20000101"_s);
    EXPECT_EQ(JetDate(-1, false), u"18991229"_s);
}

TEST(JetDates, TheFractionIsTheTimeOfDayAlsoBeforeTheFirstDay) {
    EXPECT_EQ(JetDate(36'526.75, false), u"20000101 180000"_s);
    EXPECT_EQ(JetDate(-1.25, false), u"18991229 060000"_s);
    EXPECT_EQ(JetDate(36'526.75, true), u"20000101"_s);
}

TEST(JetDates, ATimeIsRoundedToTheNextSecond) {
    EXPECT_EQ(JetDate(36'526 + 86'399.9 / 86'400, false), u"20000102"_s);
    EXPECT_EQ(JetDate(36'526 + 1.4 / 86'400, false), u"20000101 000001"_s);
}

TEST(JetDates, OutsideTheYears100To9999ThereIsNoDate) {
    EXPECT_EQ(JetDate(-657'434, false), u"01000101"_s);
    EXPECT_EQ(JetDate(2'958'465, false), u"99991231"_s);
    for (const double days : {-657'435.0, 2'958'466.0, 1e300, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(JetDate(days, false), std::nullopt) << days;
}
