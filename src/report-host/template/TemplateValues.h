#pragma once

#include "report-host/template/ReportErrors.h"
#include "report-host/template/TemplateDefinition.h"

// Parsers for the values in a template. `what` is the name of the value for the error message. All throw TemplateError
// without a line number, also for numbers whose absolute value is over 2000.

namespace report {

/// Decimal number in ASCII digits.
double ReadNumber(const QString& text, const QString& what);
/// Decimal number greater than 0.
double ReadLength(const QString& text, const QString& what);
/// Decimal number of at least `least`.
double ReadAtLeast(const QString& text, const QString& what, double least);
/// Integer of at least 1.
int ReadCount(const QString& text, const QString& what);
/// "12,34.5"
QPointF ReadPoint(const QString& text, const QString& what);
/// "120x8"
QSizeF ReadSize(const QString& text, const QString& what);
/// "44.3,51.3,58.3", at most kMostDigitBoxes numbers
QList<double> ReadNumbers(const QString& text, const QString& what);
/// "#rrggbb" or 黒, 白, 灰, 朱
QColor ReadColour(const QString& text, const QString& what);
/// "yyyymmdd"
QDate ReadDay(const QString& text, const QString& what);

/// Parses "TEL [電話]" into literals and fields; "[[" is a literal bracket. "[〒|郵便番号|　]" is a field with text
/// that is omitted if the field is empty.
TextPattern ReadPattern(const QString& text);

/// Names of the built-in fields, available in every template: page, number of pages, number of rows, number of the row,
/// date of today, line break.
inline constexpr QStringView kRunningValues[] = {u"頁", u"総頁", u"件数", u"番号", u"本日", u"改行"};
bool IsRunningValue(const QString& name);

/// The value of a word in a table of {word, value}; the error message lists all words.
template <typename Table>
auto ReadChoice(const QString& text, const QString& what, const Table& table) {
    QString words;
    for (const auto& entry : table) {
        if (text == QStringView(entry.word)) return entry.value;
        if (!words.isEmpty()) words += QChar(u'、');
        words += QStringView(entry.word);
    }
    throw TemplateError{
        0, QStringLiteral("%1には %2 のどれかを書いてください。「%3」は使えません。").arg(what, words, text)};
}

}  // namespace report
