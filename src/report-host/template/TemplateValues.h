#pragma once

#include <QColor>
#include <QDate>
#include <QList>
#include <QPointF>
#include <QSizeF>

#include "report-host/template/TemplateError.h"

// The values that the words of a form may have. `what` names the value in the mistake. All throw TemplateError without
// a line.

namespace report {

/// A decimal number, in half-width digits.
double ReadNumber(const QString& text, const QString& what);
/// The same, greater than 0.
double ReadLength(const QString& text, const QString& what);
/// The same, `least` at least.
double ReadAtLeast(const QString& text, const QString& what, double least);
/// A whole number from 1 on.
int ReadCount(const QString& text, const QString& what);
/// "12,34.5"
QPointF ReadPoint(const QString& text, const QString& what);
/// "120x8"
QSizeF ReadSize(const QString& text, const QString& what);
/// "44.3,51.3,58.3", no more than digit boxes
QList<double> ReadNumbers(const QString& text, const QString& what);
/// "#rrggbb" or 黒, 白, 灰, 朱
QColor ReadColour(const QString& text, const QString& what);
/// "yyyymmdd"
QDate ReadDay(const QString& text, const QString& what);

/// One of the words of a table of {word, value}; the mistake lists them.
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
