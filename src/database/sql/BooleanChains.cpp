// Part of Rewriters.h: BalanceChains.

#include "database/sql/Rewriters.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace database {
namespace {

struct Term {
    std::optional<Node> link;  // the OR or AND before it
    NodeList pieces;
};

constexpr std::array<QStringView, 18> kClauseWords = {
    u"SELECT", u"FROM",  u"WHERE", u"ON",     u"HAVING",    u"GROUP", u"ORDER",  u"BY",    u"LIMIT",
    u"OFFSET", u"UNION", u"ALL",   u"EXCEPT", u"INTERSECT", u"SET",   u"VALUES", u"USING", u"WINDOW"};

// True for a token that ends a condition on this level.
bool IsSeparator(const NodeList& level, size_t at) {
    const Node& piece = level[at];
    if (piece.group) return false;
    if (piece.IsPunctuation(u",") || piece.IsPunctuation(u";")) return true;
    if (piece.token.kind != TokenKind::Word) return false;
    return StartsJoin(level, at) ||
           std::any_of(kClauseWords.begin(), kClauseWords.end(), [&](QStringView word) { return piece.Is(word); });
}

NodeList Joined(std::vector<Term>&& terms) {
    NodeList level;
    for (Term& term : terms) {
        if (term.link) level.push_back(std::move(*term.link));
        level.insert(level.end(), std::make_move_iterator(term.pieces.begin()),
                     std::make_move_iterator(term.pieces.end()));
    }
    return level;
}

Term Bracketed(std::vector<Term>&& terms) {
    Term result{std::exchange(terms.front().link, std::nullopt), {}};
    result.pieces.push_back(MakeGroup(Joined(std::move(terms))));
    return result;
}

NodeList Balanced(std::vector<Term>&& terms, size_t fanOut) {
    while (terms.size() > fanOut) {
        std::vector<Term> groups;
        for (size_t begin = 0; begin < terms.size(); begin += fanOut) {
            const size_t end = std::min(begin + fanOut, terms.size());
            std::vector<Term> part(std::make_move_iterator(terms.begin() + static_cast<std::ptrdiff_t>(begin)),
                                   std::make_move_iterator(terms.begin() + static_cast<std::ptrdiff_t>(end)));
            groups.push_back(part.size() == 1 ? std::move(part.front()) : Bracketed(std::move(part)));
        }
        terms = std::move(groups);
    }
    return Joined(std::move(terms));
}

// Splits a condition at `word`, except at the AND of BETWEEN and inside CASE ... END.
std::vector<Term> Cut(NodeList&& condition, QStringView word) {
    std::vector<Term> terms(1);
    int cases = 0;
    int betweens = 0;
    for (Node& piece : condition) {
        if (piece.Is(u"CASE")) ++cases;
        if (piece.Is(u"END") && cases > 0) --cases;
        if (cases == 0 && piece.Is(u"BETWEEN")) ++betweens;
        const bool closesBetween = cases == 0 && betweens > 0 && piece.Is(u"AND");
        if (closesBetween) --betweens;
        if (cases == 0 && !closesBetween && piece.Is(word)) {
            terms.push_back({std::move(piece), {}});
        } else {
            terms.back().pieces.push_back(std::move(piece));
        }
    }
    return terms;
}

// An empty term is a syntax error, which the engine must see unchanged.
bool IsWhole(const std::vector<Term>& terms) {
    return std::none_of(terms.begin(), terms.end(), [](const Term& term) { return term.pieces.empty(); });
}

NodeList Chain(std::vector<Term>&& terms, size_t longest, size_t fanOut) {
    return terms.size() > longest && IsWhole(terms) ? Balanced(std::move(terms), fanOut) : Joined(std::move(terms));
}

NodeList BalanceCondition(NodeList&& condition, size_t longest, size_t fanOut) {
    std::vector<Term> alternatives = Cut(std::move(condition), u"OR");
    for (Term& alternative : alternatives)
        alternative.pieces = Chain(Cut(std::move(alternative.pieces), u"AND"), longest, fanOut);
    return Chain(std::move(alternatives), longest, fanOut);
}

}  // namespace

void BalanceChains(NodeList& level, size_t longest, size_t fanOut) {
    if (level.size() <= longest) return;
    NodeList result;
    NodeList condition;
    const auto flush = [&] {
        NodeList done = BalanceCondition(std::exchange(condition, {}), longest, fanOut);
        result.insert(result.end(), std::make_move_iterator(done.begin()), std::make_move_iterator(done.end()));
    };
    std::vector<bool> separators(level.size());
    for (size_t i = 0; i < level.size(); ++i) separators[i] = IsSeparator(level, i);
    for (size_t i = 0; i < level.size(); ++i) {
        if (separators[i]) flush();
        (separators[i] ? result : condition).push_back(std::move(level[i]));
    }
    flush();
    level = std::move(result);
}

}  // namespace database
