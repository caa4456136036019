#include "platform/database/StatementAdapter.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/database/ChainBalance.h"
#include "platform/database/JoinRewrite.h"
#include "platform/database/LikeRewrite.h"
#include "platform/database/OrderRewrite.h"
#include "platform/database/SignJoins.h"
#include "platform/database/StatementTree.h"

namespace platform {
namespace {

constexpr std::array<QStringView, 4> kAdapted = {u"SELECT", u"INSERT", u"UPDATE", u"DELETE"};
constexpr std::array<QStringView, 3> kOpenConditions = {u"WHERE", u"ON", u"HAVING"};
constexpr std::array<QStringView, 8> kEndConditions = {u"SELECT", u"FROM",  u"SET",   u"VALUES",
                                                       u"GROUP",  u"ORDER", u"LIMIT", u"UNION"};

template <size_t N>
bool IsOneOf(const Piece& piece, const std::array<QStringView, N>& keywords) {
    return std::any_of(keywords.begin(), keywords.end(), [&](QStringView word) { return piece.Is(word); });
}

class Adapter {
  public:
    Adapter(const EngineDifferences& engine, const TextRules& rules) : engine_(engine), rules_(rules) {}

    // `condition`: the level is a bracket inside a WHERE, ON or HAVING.
    void Adapt(Level& level, bool condition) const {
        AdaptGroups(level, condition);
        if (engine_.topIsLimit) MoveTop(level);
        if (engine_.signsAreJoins) RewriteSignJoins(level);
        if (engine_.rightJoinsAreSlow) RewriteRightJoins(level);
        if (engine_.like != LikeWriting::Own) RewriteLike(level, engine_);
        AdaptOrder(level, engine_, rules_);
        if (!rules_.comparedCaseBlind.isEmpty()) CompareCaseBlind(level, condition);
        BalanceChains(level, engine_.longestChain);
        if (engine_.bracketsAreQuotes) Requote(level);
    }

  private:
    void AdaptGroups(Level& level, bool condition) const {
        for (Piece& piece : level) {
            condition = Region(piece, condition);
            if (piece.group) Adapt(piece.inside, condition);
        }
    }

    static bool Region(const Piece& piece, bool condition) {
        if (IsOneOf(piece, kOpenConditions)) return true;
        if (IsOneOf(piece, kEndConditions)) return false;
        return condition;
    }

    static void MoveTop(Level& level) {
        std::optional<Piece> count = TakeTop(level);
        if (!count) return;
        const auto end =
            std::find_if(level.begin(), level.end(), [](const Piece& piece) { return piece.IsSign(u";"); });
        level.insert(level.insert(end, std::move(*count)), MakeWord(QStringLiteral("LIMIT")));
    }

    // Either side of the "=" may be the column. An "=" that assigns stands in no condition.
    void CompareCaseBlind(Level& level, bool condition) const {
        for (size_t i = 0; i < level.size(); ++i) {
            condition = Region(level[i], condition);
            if (!condition || !IsColumnOf(rules_.comparedCaseBlind, level[i])) continue;
            const size_t first = BeginOfName(level, i);
            const bool equalsBehind = i + 1 < level.size() && level[i + 1].IsSign(u"=");
            const bool equalsBefore = first > 0 && level[first - 1].IsSign(u"=");
            if (!equalsBehind && !equalsBefore) continue;
            if (engine_.caseBlindFunction.isEmpty())
                InsertCollation(level, i + 1, engine_.caseBlindCollation);
            else
                i = WrapSides(level, equalsBehind ? i + 1 : first - 1);
        }
    }

    // Both sides of the comparison into the function. Gives the last place of the right side.
    size_t WrapSides(Level& level, size_t equals) const {
        const size_t begin = BeginOfName(level, equals - 1);
        const size_t behind = EndOfName(level, equals + 1);
        WrapInFunction(level, equals + 1, behind, engine_.caseBlindFunction, engine_.caseBlindCollation);
        WrapInFunction(level, begin, equals, engine_.caseBlindFunction, engine_.caseBlindCollation);
        return begin + 4;  // function and bracket, "=", function and bracket
    }

    // Into the brackets as well: some of them have come around names on the way.
    void Requote(Level& level) const {
        for (Piece& piece : level) {
            if (piece.group) Requote(piece.inside);
            const bool quoted = !piece.group && piece.token.kind == TokenKind::Quoted && piece.token.text[0] == u'"';
            if (piece.group || (piece.token.kind != TokenKind::Bracket && !(quoted && engine_.namesAreLowerCase)))
                continue;
            QString name = NameOf(piece);
            if (engine_.namesAreLowerCase) name = LowerAscii(name);
            name.replace(u'"', QStringLiteral("\"\""));
            piece.token = {TokenKind::Quoted, piece.token.before, u'"' + name + u'"'};
        }
    }

    // What the engine does to a plain name.
    static QString LowerAscii(QString name) {
        for (QChar& unit : name)
            if (unit >= u'A' && unit <= u'Z') unit = QChar(unit.unicode() | 0x20);
        return name;
    }

    const EngineDifferences& engine_;
    const TextRules& rules_;
};

}  // namespace

AdaptedStatement Adapt(QStringView sql, const EngineDifferences& engine, const TextRules& rules) {
    std::optional<StatementTree> tree = ParseStatement(sql);
    if (!tree || tree->level.empty() || !IsOneOf(tree->level.front(), kAdapted)) return {sql.toString(), {}, -1};
    AdaptedStatement adapted;
    // Before the limit has moved to its end: rows that are still to be sorted can't be limited yet.
    if (engine.sortsInProvider) TakeOrder(tree->level, rules, adapted);
    Adapter(engine, rules).Adapt(tree->level, false);
    adapted.text = StatementText(*tree);
    return adapted;
}

QString AdaptStatement(QStringView sql, const EngineDifferences& engine, const TextRules& rules) {
    return Adapt(sql, engine, rules).text;
}

}  // namespace platform
