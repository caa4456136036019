#pragma once

#include <QString>

// Era dates by the rows of K年号区分. Both functions run a statement at each call; nothing is cached.

/// Formats yyyymmdd as 昭和40年04月03日, or as 1965年04月03日 if only the row without a start date applies; empty
/// without any row.
QString EraDateLong(const QString& date);
/// Formats yyyymmdd as 40/04/03, without the era name because consumers take the first two characters as the year;
/// 65/04/03 or empty in the cases above.
QString EraDateShort(const QString& date);
