#include "platform/database/LiteralLift.h"

#include <algorithm>
#include <array>

#include "platform/database/StatementTokens.h"

namespace platform {
namespace {

constexpr std::array<QStringView, 4> kLifted = {u"SELECT", u"INSERT", u"UPDATE", u"DELETE"};
constexpr std::array<QStringView, 5> kBeforeValues = {u"WHERE", u"ON", u"HAVING", u"SET", u"VALUES"};

template <size_t N>
bool IsOneOf(QStringView word, const std::array<QStringView, N>& keywords) {
    return std::any_of(keywords.begin(), keywords.end(), [&](QStringView keyword) {
        return word.size() == keyword.size() && word.compare(keyword, Qt::CaseInsensitive) == 0;
    });
}

// Codes, dates and digits are ASCII, where one character is one byte.
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

QByteArrayView LiftedStatement::Literal(size_t index) const {
    const size_t begin = index == 0 ? 0 : ends_[index - 1];
    return {values_.data() + begin, static_cast<qsizetype>(ends_[index] - begin)};
}

void LiftedStatement::Lift(QStringView sql) {
    if (text_.capacity() < sql.size()) text_.reserve(sql.size() * 2);
    text_.resize(0);
    values_.clear();
    ends_.clear();
    if (TryLift(sql)) return;
    text_ = sql.toString();
    values_.clear();
    ends_.clear();
}

bool LiftedStatement::TryLift(QStringView sql) {
    TokenSpan token = NextToken(sql, 0);
    if (token.kind != TokenKind::Word || !IsOneOf(sql.sliced(token.begin, token.end - token.begin), kLifted))
        return false;
    qsizetype copied = 0;
    bool valuesMayCome = false;
    for (;;) {
        token = NextToken(sql, token.end);
        switch (token.kind) {
            case TokenKind::End:
                text_.append(sql.sliced(copied));
                return true;
            case TokenKind::Broken:
            case TokenKind::Parameter:
                return false;
            case TokenKind::Word:
                valuesMayCome =
                    valuesMayCome || IsOneOf(sql.sliced(token.begin, token.end - token.begin), kBeforeValues);
                break;
            case TokenKind::Text:
                if (!valuesMayCome) break;
                text_.append(sql.sliced(copied, token.begin - copied));
                AppendLiteral(sql.sliced(token.begin, token.end - token.begin));
                text_.append(u'?').append(QString::number(ends_.size()));
                copied = token.end;
                break;
            default:
                break;
        }
    }
}

void LiftedStatement::AppendLiteral(QStringView quoted) {
    QStringView rest = quoted.sliced(1, quoted.size() - 2);
    for (qsizetype quote = rest.indexOf(u'\''); quote >= 0; quote = rest.indexOf(u'\'')) {
        AppendUtf8(values_, rest.first(quote + 1));
        rest = rest.sliced(quote + 2);
    }
    AppendUtf8(values_, rest);
    ends_.push_back(values_.size());
}

}  // namespace platform
