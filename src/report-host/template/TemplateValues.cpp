#include "report-host/template/TemplateValues.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "report-host/template/ReportErrors.h"
#include "report-host/template/TemplateDefinition.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double kLongest = 2000;  // millimetres; above any paper size, keeps the arithmetic finite

struct NamedColour {
    const char16_t* word;
    QRgb value;
};
constexpr NamedColour kColours[] = {{u"黒", 0xFF000000}, {u"白", 0xFFFFFFFF}, {u"灰", 0xFF808080}, {u"朱", 0xFFE2442C}};

void AddLiteral(TextPattern& pattern, QStringView text) {
    if (text.isEmpty()) return;
    if (!pattern.isEmpty() && !pattern.last().isField)
        pattern.last().text += text;
    else
        pattern.append({false, text.toString(), {}, {}});
}

TextPiece ReadField(const QString& text) {
    const QStringList parts = text.split(u'|');
    if (parts.size() == 1) return {true, text, {}, {}};
    if (parts.size() != 3 || parts[1].isEmpty())
        throw TemplateError{0, u"「[%1]」は [前の文字|列|後の文字] の形で書いてください。"_s.arg(text)};
    return {true, parts[1], parts[0], parts[2]};
}

}  // namespace

double ReadNumber(const QString& text, const QString& what) {
    static const QRegularExpression shape(uR"(^-?[0-9]+(\.[0-9]+)?$)"_s);
    const double number = text.toDouble();
    if (!shape.match(text).hasMatch()) throw TemplateError{0, u"%1「%2」は数ではありません。"_s.arg(what, text)};
    if (std::abs(number) > kLongest) throw TemplateError{0, u"%1「%2」は大きすぎます。"_s.arg(what, text)};
    return number;
}

double ReadLength(const QString& text, const QString& what) {
    const double number = ReadNumber(text, what);
    if (number <= 0) throw TemplateError{0, u"%1「%2」は 0 より大きくしてください。"_s.arg(what, text)};
    return number;
}

double ReadAtLeast(const QString& text, const QString& what, double least) {
    const double number = ReadLength(text, what);
    if (number < least) throw TemplateError{0, u"%1「%2」は %3 以上にしてください。"_s.arg(what, text).arg(least)};
    return number;
}

int ReadCount(const QString& text, const QString& what) {
    const double number = ReadLength(text, what);
    if (number != std::floor(number)) throw TemplateError{0, u"%1「%2」は整数ではありません。"_s.arg(what, text)};
    return static_cast<int>(number);
}

QPointF ReadPoint(const QString& text, const QString& what) {
    const QStringList parts = text.split(u',');
    if (parts.size() != 2) throw TemplateError{0, u"%1「%2」は「左,上」の形で書いてください。"_s.arg(what, text)};
    return {ReadNumber(parts[0], what), ReadNumber(parts[1], what)};
}

QSizeF ReadSize(const QString& text, const QString& what) {
    const QStringList parts = text.split(u'x');
    if (parts.size() != 2) throw TemplateError{0, u"%1「%2」は「幅x高さ」の形で書いてください。"_s.arg(what, text)};
    return {ReadLength(parts[0], what), ReadLength(parts[1], what)};
}

QList<double> ReadNumbers(const QString& text, const QString& what) {
    const QStringList parts = text.split(u',');
    if (parts.size() > kMostDigitBoxes)
        throw TemplateError{0, u"%1は %2 個までにしてください。"_s.arg(what).arg(kMostDigitBoxes)};
    QList<double> numbers;
    for (const QString& part : parts) numbers.append(ReadNumber(part, what));
    return numbers;
}

QColor ReadColour(const QString& text, const QString& what) {
    static const QRegularExpression shape(u"^#[0-9A-Fa-f]{6}$"_s);
    if (shape.match(text).hasMatch()) return QColor(text);
    for (const NamedColour& colour : kColours)
        if (text == QStringView(colour.word)) return QColor(colour.value);
    throw TemplateError{0,
                        u"%1「%2」は色ではありません。#rrggbb か 黒、白、灰、朱 で書いてください。"_s.arg(what, text)};
}

QDate ReadDay(const QString& text, const QString& what) {
    const QDate day = QDate::fromString(text, u"yyyyMMdd"_s);
    if (!day.isValid()) throw TemplateError{0, u"%1「%2」は日付（8 桁の年月日）ではありません。"_s.arg(what, text)};
    return day;
}

TextPattern ReadPattern(const QString& text) {
    TextPattern pattern;
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype open = text.indexOf(u'[', at);
        if (open < 0) break;
        AddLiteral(pattern, QStringView(text).mid(at, open - at));
        if (text.mid(open, 2) == u"[["_s) {
            AddLiteral(pattern, u"[");
            at = open + 2;
            continue;
        }
        const qsizetype close = text.indexOf(u']', open);
        if (close < 0) throw TemplateError{0, u"「[」が「]」で閉じていません。"_s};
        if (close == open + 1) throw TemplateError{0, u"「[]」の中に列の名前がありません。"_s};
        pattern.append(ReadField(text.mid(open + 1, close - open - 1)));
        at = close + 1;
    }
    AddLiteral(pattern, QStringView(text).mid(at));
    return pattern;
}

bool IsRunningValue(const QString& name) {
    return std::find(std::begin(kRunningValues), std::end(kRunningValues), QStringView(name)) !=
           std::end(kRunningValues);
}

}  // namespace report
