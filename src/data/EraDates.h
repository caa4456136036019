#pragma once

#include <QString>

// Era dates by the rows of K年号区分. Both run their statement at every call and keep nothing.

/// Stored date yyyymmdd as 昭和40年04月03日; 1965年04月03日 where only the row without a start applies; empty
/// without any row.
QString EraDateLong(const QString& date);
/// Stored date as 40/04/03 without the era's name, since its readers take the first two characters as the year;
/// 65/04/03 or empty in the same cases.
QString EraDateShort(const QString& date);
