#include "text/mod項目編集.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "text/CodePage932.h"

using namespace Qt::StringLiterals;

namespace {

bool IsDigit(QChar character) { return character >= u'0' && character <= u'9'; }

struct PlainNumber {
    bool negative = false;
    QString digits;  ///< of the whole part, rounded, without leading zeros
};

void StripLeadingZeros(QString& digits) {
    qsizetype zeros = 0;
    while (zeros < digits.size() && digits[zeros] == u'0') ++zeros;
    digits.remove(0, zeros);
}

void AddOne(QString& digits) {
    qsizetype i = digits.size();
    while (i > 0 && digits[i - 1] == u'9') digits[--i] = u'0';
    if (i == 0)
        digits.prepend(u'1');
    else
        digits[i - 1] = QChar(digits[i - 1].unicode() + 1);
}

qsizetype SkipDigits(QStringView text, qsizetype from) {
    while (from < text.size() && IsDigit(text[from])) ++from;
    return from;
}

/// Parses sign, digits and fraction, surrounded by blanks; nullopt for anything else. The digits stay text, so that
/// codes of any length are exact.
std::optional<PlainNumber> ParseNumber(const QString& value) {
    const QString text = TrimBlanks(value);
    PlainNumber number;
    const bool sign = text.startsWith(u'-') || text.startsWith(u'+');
    number.negative = text.startsWith(u'-');
    const qsizetype first = sign ? 1 : 0;
    const qsizetype point = SkipDigits(text, first);
    qsizetype end = point;
    if (end < text.size() && text[end] == u'.') end = SkipDigits(text, point + 1);
    const qsizetype fraction = std::max<qsizetype>(end - point - 1, 0);
    if (end != text.size() || point - first + fraction == 0) return std::nullopt;
    number.digits = text.mid(first, point - first);
    StripLeadingZeros(number.digits);
    if (fraction > 0 && text[point + 1] >= u'5') AddOne(number.digits);
    return number;
}

QString GroupThousands(const QString& digits) {
    QString grouped = digits;
    for (qsizetype place = grouped.size() - 3; place > 0; place -= 3) grouped.insert(place, u',');
    return grouped;
}

QString ApplyMask(const PlainNumber& number, const QString& mask) {
    QString digits = number.digits;
    if (const qsizetype width = mask.count(u'0'); digits.size() < width) digits = digits.rightJustified(width, u'0');
    if (mask.contains(u',')) digits = GroupThousands(digits);
    return number.negative && !number.digits.isEmpty() ? u'-' + digits : digits;
}

/// Number of leading UTF-16 units within `maxBytes`, never splitting a surrogate pair.
qsizetype FittingLength(const QString& text, int maxBytes) {
    int bytes = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        bytes += UnitLength932(text[i].unicode());
        if (bytes <= maxBytes) continue;
        const bool splitsPair = i > 0 && text[i].isLowSurrogate() && text[i - 1].isHighSurrogate();
        return splitsPair ? i - 1 : i;
    }
    return text.size();
}

QString Repeat(int count, QChar character) { return QString(std::max(count, 0), character); }

}  // namespace

QString TrimBlanks(QStringView text) {
    while (text.startsWith(u' ')) text = text.sliced(1);
    while (text.endsWith(u' ')) text.chop(1);
    return text.toString();
}

int NumericValue(QStringView text) {
    qint64 value = 0;
    for (const QChar character : text) {
        if (character == u' ') continue;
        if (!IsDigit(character)) break;
        value = std::min<qint64>(value * 10 + (character.unicode() - u'0'), std::numeric_limits<int>::max());
    }
    return static_cast<int>(value);
}

QString FormatByMask(const QString& value, const QString& mask) {
    const std::optional<PlainNumber> number = ParseNumber(value);
    return number ? ApplyMask(*number, mask) : value;
}

QString FormatByMask(qint64 value, const QString& mask) {
    return ApplyMask({value < 0, value == 0 ? QString() : QString::number(value).mid(value < 0 ? 1 : 0)}, mask);
}

QString CutToLength(const QString& text, int maxBytes) { return text.first(FittingLength(text, maxBytes)); }

int OverflowCount(const QString& text, int maxBytes) {
    return static_cast<int>(text.size() - FittingLength(text, maxBytes));
}

QString QuoteSqlText(const QString& text) {
    QString quoted = text;
    quoted.replace(u"'"_s, u"''"_s);
    while (quoted.endsWith(u' ')) quoted.chop(1);
    return quoted;
}

QString DefaultRangeFrom(const QString& mask, int) { return Repeat(static_cast<int>(mask.size()), u'0'); }

QString DefaultRangeTo(const QString& mask, int length) {
    return mask.isEmpty() ? RepeatZ(length) : RepeatNine(static_cast<int>(mask.size()));
}

QString FormatCodeByMask(const QString& value, const QString& mask) {
    return mask.isEmpty() ? value : FormatByMask(value, mask).left(mask.size());
}

QString RepeatZero(int count) { return Repeat(count, u'0'); }
QString RepeatNine(int count) { return Repeat(count, u'9'); }
QString RepeatZ(int count) { return Repeat(count, u'Z'); }
