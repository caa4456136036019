#pragma once

#include <QString>
#include <QStringView>

// Text procedures used by all screens and queries. Lengths in bytes refer to code page 932 (see CodePage932.h), all
// other lengths to UTF-16 units. None of them fails. A "mask" is a number format such as "000" or "#,###,##0".

/// Removes blanks U+0020 from both ends. Full-width blanks are kept, unlike with QString::trimmed().
QString TrimBlanks(QStringView text);

/// Number at the beginning of a text: the digits before the first other character; blanks are ignored. 0 if there
/// are none, also for a negative number; at most the maximum of int.
int NumericValue(QStringView text);

/// Formats a decimal number by a mask, rounded half away from zero to a whole number: at least as many digits as the
/// mask has "0", groups of three if it has a ","; longer numbers are not cut; "-" before a negative number. "#" has no
/// effect. Text that is not a number is returned unchanged.
QString FormatByMask(const QString& value, const QString& mask);
QString FormatByMask(qint64 value, const QString& mask);

/// The longest prefix of at most `maxBytes` bytes that splits no character.
QString CutToLength(const QString& text, int maxBytes);

/// Number of UTF-16 units that CutToLength removes; 0 if the text fits.
int OverflowCount(const QString& text, int maxBytes);

/// Escapes a text for use between single quotes in SQL, without adding them: doubles single quotes, removes trailing
/// blanks. Wildcards of LIKE are not escaped. See database::TextLiteral for a whole literal with its blanks.
QString QuoteSqlText(const QString& text);

/// Lowest code of a mask: "0" repeated to the mask's length; `length` is ignored.
QString DefaultRangeFrom(const QString& mask, int length);
/// Highest code of a mask: "9" repeated to the mask's length; for an empty mask "Z" repeated `length` times.
QString DefaultRangeTo(const QString& mask, int length);

/// Formats a code by a mask of zeros such as "000000": a number as by FormatByMask, other text as it is, then cut on
/// the right to the mask's length. An empty value stays empty; with an empty mask the value is unchanged.
QString FormatCodeByMask(const QString& value, const QString& mask);

/// The character `count` times; empty if `count` is not positive.
QString RepeatZero(int count);
QString RepeatNine(int count);
QString RepeatZ(int count);
