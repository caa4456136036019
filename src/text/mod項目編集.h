#pragma once

#include <QString>
#include <QStringView>

// Text procedures used by all screens and queries. Lengths in bytes refer to code page 932 (see CodePage932.h), all
// other lengths to UTF-16 units. None of them fails.

/// Removes blanks U+0020 from both ends. Full-width blanks are kept, unlike with QString::trimmed().
QString TrimBlanks(QStringView text);

/// Number at the beginning of a text: digits, blanks ignored, up to the first other character; 0 without digits.
/// Saturates at the maximum of int.
int NumericValue(QStringView text);

/// Formats a number by a mask ("000", "0", "#,###,##0", "#####0", "##0"). Text that is not a number is returned
/// unchanged.
QString FormatByMask(const QString& value, const QString& mask);
QString FormatByMask(qint64 value, const QString& mask);

/// The longest prefix of whole characters within `maxBytes`.
QString CutToLength(const QString& text, int maxBytes);

/// Number of UTF-16 units after that prefix; 0 if the text fits.
int OverflowCount(const QString& text, int maxBytes);

/// Escapes a text for use between single quotes in SQL: doubles quotes, removes trailing blanks. Wildcards are not
/// escaped.
QString QuoteSqlText(const QString& text);

/// Lowest code of a mask: "0" repeated to the mask's length; `length` is ignored.
QString DefaultRangeFrom(const QString& mask, int length);
/// Highest code of a mask: "9" repeated to the mask's length; for an empty mask "Z" repeated `length` times.
QString DefaultRangeTo(const QString& mask, int length);

/// Formats a code: zero-padded on the left or cut on the right to the mask's length. Text that is not a number is only
/// cut; an empty value or mask changes nothing.
QString FormatCodeByMask(const QString& value, const QString& mask);

QString RepeatZero(int count);
QString RepeatNine(int count);
QString RepeatZ(int count);
