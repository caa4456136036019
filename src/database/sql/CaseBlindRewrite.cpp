// Part of Rewriters.h: CompareCaseBlind and IsInCondition.

#include "database/sql/Rewriters.h"

#include <algorithm>
#include <array>

#include "database/sql/SyntaxTree.h"

namespace database {
namespace {

constexpr std::array<QStringView, 3> kOpenConditions = {u"WHERE", u"ON", u"HAVING"};
constexpr std::array<QStringView, 8> kEndConditions = {u"SELECT", u"FROM",  u"SET",   u"VALUES",
                                                       u"GROUP",  u"ORDER", u"LIMIT", u"UNION"};

template <size_t N>
bool IsOneOf(const Node& piece, const std::array<QStringView, N>& keywords) {
    return std::any_of(keywords.begin(), keywords.end(), [&](QStringView word) { return piece.Is(word); });
}

[[noreturn]] void RefuseComparison() {
    RefuseStatement(QStringLiteral(
        "ログイン名のこの比較はサーバーの検索に置き換えられません。列 = '文字列' の形で指定してください。"));
}

bool IsColumn(const NodeList& level, size_t at, const TextRules& rules) {
    return at < level.size() && IsColumnOf(rules.comparedCaseBlind, level[at]);
}

// Checks both sides for a listed column.
bool Compares(const NodeList& level, size_t equals, const TextRules& rules) {
    if (!level[equals].IsPunctuation(u"=")) return false;
    if (equals > 0 && IsColumn(level, equals - 1, rules)) return true;
    return equals + 1 < level.size() && IsColumn(level, EndOfName(level, equals + 1) - 1, rules);
}

bool LacksSide(const NodeList& level, size_t equals) {
    return equals == 0 || equals + 1 >= level.size() || level[equals + 1].IsPunctuation(u";");
}

// Returns the index of the right side's last node.
size_t WrapSides(NodeList& level, size_t equals, const QString& call) {
    const std::optional<size_t> begin = BeginOfOperand(level, equals), end = EndOfOperand(level, equals + 1);
    if (!begin || !end || !StartsExpression(level, *begin) || !EndsExpression(level, *end)) RefuseComparison();
    const size_t right = WrapInCall(level, equals + 1, *end, call);
    const size_t left = WrapInCall(level, *begin, equals, call);
    return *begin + left + right;
}

void InsertCollations(NodeList& level, size_t equals, const QString& collation, const TextRules& rules) {
    const size_t right = equals + 1 < level.size() ? EndOfName(level, equals + 1) : level.size();
    if (IsColumn(level, right - 1, rules)) InsertCollation(level, right, collation);
    if (equals > 0 && IsColumn(level, equals - 1, rules)) InsertCollation(level, equals, collation);
}

}  // namespace

bool IsInCondition(const Node& piece, bool before) {
    if (IsOneOf(piece, kOpenConditions)) return true;
    if (IsOneOf(piece, kEndConditions)) return false;
    return before;
}

void CompareCaseBlind(NodeList& level, bool condition, const SqlDialect& engine, const TextRules& rules) {
    for (size_t i = 0; i < level.size(); ++i) {
        condition = IsInCondition(level[i], condition);
        if (!condition || !Compares(level, i, rules)) continue;
        if (engine.caseBlindCall.isEmpty()) {
            const size_t before = level.size();
            InsertCollations(level, i, engine.caseBlindCollation, rules);
            i += level.size() - before;
        } else if (!LacksSide(level, i)) {
            i = WrapSides(level, i, engine.caseBlindCall);
        }
    }
}

}  // namespace database
