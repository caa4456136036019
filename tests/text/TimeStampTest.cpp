#include "text/TimeStamp.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TimeStamp, HasFifteenCharactersInWhichTextOrderIsTimeOrder) {
    EXPECT_EQ(TimeStamp(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5))), u"20260102 030405"_s);
    EXPECT_EQ(TimeStamp(QDateTime(QDate(2026, 12, 31), QTime(23, 59, 59))), u"20261231 235959"_s);
    EXPECT_EQ(TimeStamp(QDateTime(QDate(2026, 1, 1), QTime(0, 0))), u"20260101 000000"_s);
}

TEST(TimeStamp, DateHasEightDigits) { EXPECT_EQ(DateText(QDate(2026, 4, 1)), u"20260401"_s); }
