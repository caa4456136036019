#pragma once

#include <QString>

// Dates in Japanese eras. The era is the row of K年号区分 with the latest 開始日付 (yyyymmdd) up to the date; a row
// with an empty 開始日付 is that of the western calendar. Each call runs a statement; nothing is cached. `date`:
// yyyymmdd, not validated. The result is empty if no row applies, or if the table cannot be read (recorded in the run
// history).

/// Formats a date as 昭和40年04月03日; in the western calendar as 1965年04月03日.
QString EraDateLong(const QString& date);
/// Formats a date as 40/04/03, without the era's name since consumers take the first two characters as the year; in the
/// western calendar as 65/04/03.
QString EraDateShort(const QString& date);
