#pragma once

#include <QString>
#include <QStringView>

// Small text procedures that every screen and query leans on. Lengths called bytes are those of the text in code
// page 932 (full-width 2, ASCII and half-width kana 1, a character without a form 1 for each UTF-16 unit);
// everything else counts UTF-16 units.

/// Blanks U+0020 taken off both ends. Full-width blanks stay, unlike with QString::trimmed().
QString TrimBlanks(QStringView text);

/// Number at the head of a text: digits with blanks ignored, up to the first other character; 0 without any.
int NumericValue(QStringView text);

/// A number mask ("000", "0", "#,###,##0", "#####0", "##0") applied to a text. What is not a number, and an empty
/// text, comes back unchanged.
QString FormatByMask(const QString& value, const QString& mask);
QString FormatByMask(qint64 value, const QString& mask);

/// The longest beginning of whole characters within `maxBytes`; the text itself when it fits.
QString CutToLength(const QString& text, int maxBytes);

/// Number of characters from the first that does not fit into `maxBytes` to the end; 0 when the text fits.
int OverflowCount(const QString& text, int maxBytes);

/// The text for a place between single quotes of a statement: quotes doubled, blanks at the right end removed.
/// Wildcards stay wildcards.
QString QuoteSqlText(const QString& text);

/// Lowest code of a mask: as many "0" as the mask is long; empty for an empty mask, whatever the length.
QString DefaultRangeFrom(const QString& mask, int length);
/// Highest code of a mask: as many "9"; for an empty mask `length` times "Z".
QString DefaultRangeTo(const QString& mask, int length);

/// A code under its mask: zero-padded on the left, or cut to the mask's left part. Empty stays empty, an empty
/// mask changes nothing, what is not a number is only cut.
QString FormatCodeByMask(const QString& value, const QString& mask);

QString RepeatZero(int count);
QString RepeatNine(int count);
QString RepeatZ(int count);
