// Part of SyntaxTree.h: operands, WrapInCall and RefuseStatement.

#include "database/sql/SyntaxTree.h"

#include "database/DatabaseError.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/RuntimeError.h"

namespace database {
namespace {

constexpr std::array<QStringView, 15> kBeforeExpressions = {u"SELECT", u"DISTINCT", u"ALL",  u"WHERE",  u"AND",
                                                            u"OR",     u"NOT",      u"ON",   u"HAVING", u"WHEN",
                                                            u"THEN",   u"ELSE",     u"CASE", u"BY",     u"RETURNING"};
constexpr std::array<QStringView, 24> kAfterExpressions = {
    u"AND",       u"OR",     u"ORDER", u"GROUP", u"HAVING", u"LIMIT", u"UNION", u"EXCEPT",
    u"INTERSECT", u"WINDOW", u"THEN",  u"ELSE",  u"WHEN",   u"END",   u"AS",    u"FROM",
    u"WHERE",     u"LEFT",   u"RIGHT", u"INNER", u"FULL",   u"CROSS", u"JOIN",  u"ON"};

template <size_t N>
bool IsOneOf(const Node& piece, const std::array<QStringView, N>& keywords) {
    return std::any_of(keywords.begin(), keywords.end(), [&](QStringView word) { return piece.Is(word); });
}

bool IsLiteral(const Node& piece) {
    return !piece.group && (piece.token.kind == TokenKind::Text || piece.token.kind == TokenKind::Number);
}

// True for the AND of a BETWEEN, which does not end an expression.
bool IsOfBetween(const NodeList& level, size_t conjunction) {
    for (size_t at = conjunction; at > 0; --at) {
        if (level[at - 1].Is(u"BETWEEN")) return true;
        if (level[at - 1].Is(u"AND") || level[at - 1].Is(u"OR")) return false;
    }
    return false;
}

// Quoted names in `call` are already in the engine's syntax; marked as words so that they are not requoted.
NodeList ReadCall(const QString& call) {
    NodeList pieces = std::move(ParseStatement(call)->level);
    const auto keep = [](NodeList& level, const auto& self) -> void {
        for (Node& piece : level) {
            if (piece.token.kind == TokenKind::Quoted) piece.token.kind = TokenKind::Word;
            self(piece.inside, self);
        }
    };
    keep(pieces, keep);
    return pieces;
}

NodeList* FindOperand(NodeList& level, size_t& place) {
    for (place = 0; place < level.size(); ++place) {
        if (level[place].Is(u"operand")) return &level;
        size_t inside = 0;
        NodeList* found = level[place].group ? FindOperand(level[place].inside, inside) : nullptr;
        if (found == nullptr) continue;
        place = inside;
        return found;
    }
    return nullptr;
}

}  // namespace

std::optional<size_t> BeginOfOperand(const NodeList& level, size_t end) {
    if (end == 0) return std::nullopt;
    const Node& last = level[end - 1];
    if (last.IsName()) return BeginOfName(level, end - 1);
    if (!last.group) return IsLiteral(last) ? std::optional(end - 1) : std::nullopt;
    const bool called = end >= 2 && level[end - 2].IsName() && !IsOneOf(level[end - 2], kBeforeExpressions);
    return called ? BeginOfName(level, end - 2) : end - 1;
}

std::optional<size_t> EndOfOperand(const NodeList& level, size_t begin) {
    if (begin >= level.size()) return std::nullopt;
    const Node& first = level[begin];
    if (first.group || IsLiteral(first)) return begin + 1;
    if (!first.IsName()) return std::nullopt;
    const size_t end = EndOfName(level, begin);
    return end < level.size() && level[end].group ? end + 1 : end;
}

bool StartsExpression(const NodeList& level, size_t begin) {
    if (begin == 0) return true;
    const Node& before = level[begin - 1];
    if (before.Is(u"AND")) return !IsOfBetween(level, begin - 1);
    if (before.IsPunctuation(u",") || IsOneOf(before, kBeforeExpressions)) return true;
    return level[begin].IsName() && (before.group || before.token.kind == TokenKind::Text);
}

bool EndsExpression(const NodeList& level, size_t end) {
    if (end >= level.size()) return true;
    const Node& next = level[end];
    return next.IsPunctuation(u",") || next.IsPunctuation(u";") || IsOneOf(next, kAfterExpressions);
}

size_t WrapInCall(NodeList& level, size_t first, size_t last, const QString& call) {
    const auto begin = level.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = level.begin() + static_cast<std::ptrdiff_t>(last);
    NodeList inside(std::make_move_iterator(begin), std::make_move_iterator(end));
    NodeList pieces = ReadCall(call);
    pieces.front().token.leadingTrivia = std::exchange(inside.front().token.leadingTrivia, QString());
    const size_t count = pieces.size();
    size_t place = 0;
    NodeList& target = *FindOperand(pieces, place);
    const auto operand = target.erase(target.begin() + static_cast<std::ptrdiff_t>(place));
    target.insert(operand, std::make_move_iterator(inside.begin()), std::make_move_iterator(inside.end()));
    level.insert(level.erase(begin, end), std::make_move_iterator(pieces.begin()),
                 std::make_move_iterator(pieces.end()));
    return count;
}

void RefuseStatement(const QString& reason) { throw DatabaseError(kStatementFailure, reason); }

}  // namespace database
