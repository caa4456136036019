#include "database/sql/ParameterisedStatement.h"

#include <algorithm>
#include <array>

#include "database/sql/Tokenizer.h"

namespace database {
namespace {

constexpr std::array<QStringView, 4> kLifted = {u"SELECT", u"INSERT", u"UPDATE", u"DELETE"};
constexpr std::array<QStringView, 5> kBeforeValues = {u"WHERE", u"ON", u"HAVING", u"SET", u"VALUES"};

template <size_t N>
bool IsOneOf(QStringView word, const std::array<QStringView, N>& keywords) {
    return std::any_of(keywords.begin(), keywords.end(), [&](QStringView keyword) {
        return word.size() == keyword.size() && word.compare(keyword, Qt::CaseInsensitive) == 0;
    });
}

bool IsDigit(QChar unit) { return unit >= u'0' && unit <= u'9'; }

// Fast path: codes, dates and digits are ASCII.
void AppendUtf8(std::string& target, QStringView text) {
    const auto ascii = [](QChar unit) { return unit.unicode() < 0x80; };
    if (std::all_of(text.begin(), text.end(), ascii)) {
        for (const QChar unit : text) target.push_back(static_cast<char>(unit.unicode()));
    } else {
        const QByteArray utf8 = text.toUtf8();
        target.append(utf8.constData(), static_cast<size_t>(utf8.size()));
    }
}

}  // namespace

QByteArrayView ParameterisedStatement::Literal(size_t index) const {
    const size_t begin = index == 0 ? 0 : ends_[index - 1];
    return {values_.data() + begin, static_cast<qsizetype>(ends_[index] - begin)};
}

void ParameterisedStatement::Lift(QStringView sql) {
    values_.clear();
    ends_.clear();
    if (TryShapes(sql) || TryTokens(sql)) return;
    text_ = sql.toString();
    values_.clear();
    ends_.clear();
}

// Equal text up to a literal implies equal tokens up to it, and tokenizing restarts after its closing quote.
bool ParameterisedStatement::HasShape(QStringView sql, const Shape& shape) {
    QStringView rest = sql;
    for (size_t i = 0;; ++i) {
        const QString& between = shape.between[i];
        if (!rest.startsWith(between)) return false;
        rest = rest.sliced(between.size());
        if (i + 1 == shape.between.size()) return rest.isEmpty();
        if (!rest.startsWith(u'\'')) return false;
        const TokenSpan literal = NextToken(rest, 0);
        if (literal.kind != TokenKind::Text) return false;
        AppendLiteral(rest.first(literal.end));
        rest = rest.sliced(literal.end);
    }
}

bool ParameterisedStatement::TryShapes(QStringView sql) {
    for (auto shape = shapes_.begin(); shape != shapes_.end(); ++shape) {
        if (HasShape(sql, *shape)) {
            std::rotate(shapes_.begin(), shape, shape + 1);
            text_ = shapes_.front().text;
            return true;
        }
        values_.clear();
        ends_.clear();
    }
    return false;
}

bool ParameterisedStatement::TryTokens(QStringView sql) {
    TokenSpan token = NextToken(sql, 0);
    if (token.kind != TokenKind::Word || !IsOneOf(sql.sliced(token.begin, token.end - token.begin), kLifted))
        return false;
    Shape shape;
    qsizetype copied = 0;
    bool valuesMayCome = false;
    for (;;) {
        token = NextToken(sql, token.end);
        const QStringView text = sql.sliced(token.begin, token.end - token.begin);
        if (token.kind == TokenKind::Invalid || token.kind == TokenKind::Parameter) return false;
        if (token.kind == TokenKind::End) break;
        if (token.kind == TokenKind::Word) valuesMayCome = valuesMayCome || IsOneOf(text, kBeforeValues);
        if (token.kind != TokenKind::Text || !valuesMayCome) continue;
        // A digit directly after the literal would extend the parameter's number.
        if (token.end < sql.size() && IsDigit(sql[token.end])) return false;
        AppendLiteral(text);
        shape.between.push_back(sql.sliced(copied, token.begin - copied).toString());
        shape.text.append(shape.between.back()).append(u'?').append(QString::number(ends_.size()));
        copied = token.end;
    }
    shape.between.push_back(sql.sliced(copied).toString());
    shape.text.append(shape.between.back());
    text_ = shape.text;
    if (shapes_.size() == kMostShapes) shapes_.pop_back();
    shapes_.insert(shapes_.begin(), std::move(shape));
    return true;
}

void ParameterisedStatement::AppendLiteral(QStringView quoted) {
    QStringView rest = quoted.sliced(1, quoted.size() - 2);
    for (qsizetype quote = rest.indexOf(u'\''); quote >= 0; quote = rest.indexOf(u'\'')) {
        AppendUtf8(values_, rest.first(quote + 1));
        rest = rest.sliced(quote + 2);
    }
    AppendUtf8(values_, rest);
    ends_.push_back(values_.size());
}

}  // namespace database
