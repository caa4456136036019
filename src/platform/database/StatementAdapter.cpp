#include "platform/database/StatementAdapter.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/database/ChainBalance.h"
#include "platform/database/JoinRewrite.h"
#include "platform/database/StatementTree.h"

namespace platform {
namespace {

constexpr std::array<QStringView, 4> kAdapted = {u"SELECT", u"INSERT", u"UPDATE", u"DELETE"};
constexpr std::array<QStringView, 3> kCompounds = {u"UNION", u"EXCEPT", u"INTERSECT"};
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
        if (engine_.rightJoinsAreSlow) RewriteRightJoins(level);
        if (!engine_.textCollation.isEmpty() && !rules_.sortedAsText.isEmpty()) CollateOrder(level);
        if (!rules_.comparedCaseBlind.isEmpty()) CollateEquality(level, condition);
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

    // Only the whole of a compound can be limited here, which would be another result: it stays as it is.
    static void MoveTop(Level& level) {
        const auto compound = [](const Piece& piece) { return IsOneOf(piece, kCompounds); };
        if (std::any_of(level.begin(), level.end(), compound)) return;
        auto at = std::find_if(level.begin(), level.end(), [](const Piece& piece) { return piece.Is(u"SELECT"); });
        if (at == level.end()) return;
        ++at;
        while (at != level.end() && (at->Is(u"DISTINCT") || at->Is(u"ALL"))) ++at;
        if (level.end() - at < 3 || !at->Is(u"TOP") || at[1].group || at[1].token.kind != TokenKind::Number) return;
        if (at[2].Is(u"PERCENT")) return;
        Piece count = std::move(at[1]);
        count.token.before = QStringLiteral(" ");
        level.erase(at, at + 2);
        const auto end =
            std::find_if(level.begin(), level.end(), [](const Piece& piece) { return piece.IsSign(u";"); });
        level.insert(level.insert(end, std::move(count)), MakeWord(QStringLiteral("LIMIT")));
    }

    static bool Lists(const QStringList& columns, const Piece& piece) {
        return piece.IsName() && columns.contains(NameOf(piece), Qt::CaseInsensitive);
    }

    static void InsertCollation(Level& level, size_t at, const QString& collation) {
        const std::array<Piece, 2> words = {MakeWord(QStringLiteral("COLLATE")), MakeWord(collation)};
        level.insert(level.begin() + static_cast<std::ptrdiff_t>(at), words.begin(), words.end());
    }

    // An item is a column with or without its table; any expression is left to the engine.
    void CollateOrder(Level& level) const {
        for (size_t i = 0; i + 1 < level.size(); ++i) {
            if (!level[i].Is(u"ORDER") || !level[i + 1].Is(u"BY")) continue;
            for (size_t item = i + 2; item < level.size(); item = NextItem(level, item)) {
                size_t column = item;
                while (column + 2 < level.size() && level[column + 1].IsSign(u".")) column += 2;
                if (Lists(rules_.sortedAsText, level[column]) && EndsItem(level, column + 1))
                    InsertCollation(level, column + 1, engine_.textCollation);
            }
        }
    }

    static size_t NextItem(const Level& level, size_t at) {
        while (at < level.size() && !level[at].IsSign(u",")) ++at;
        return at + 1;
    }

    static bool EndsItem(const Level& level, size_t at) {
        return at >= level.size() || level[at].IsSign(u",") || level[at].IsSign(u";") || level[at].Is(u"ASC") ||
               level[at].Is(u"DESC") || level[at].Is(u"LIMIT");
    }

    // Either side of the "=" may be the column. An "=" that assigns stands in no condition.
    void CollateEquality(Level& level, bool condition) const {
        for (size_t i = 0; i < level.size(); ++i) {
            condition = Region(level[i], condition);
            if (!condition || !Lists(rules_.comparedCaseBlind, level[i])) continue;
            size_t first = i;
            while (first >= 2 && level[first - 1].IsSign(u".")) first -= 2;
            const bool equalsBehind = i + 1 < level.size() && level[i + 1].IsSign(u"=");
            const bool equalsBefore = first > 0 && level[first - 1].IsSign(u"=");
            if (equalsBehind || equalsBefore) InsertCollation(level, i + 1, engine_.caseBlindCollation);
        }
    }

    static void Requote(Level& level) {
        for (Piece& piece : level) {
            if (piece.group || piece.token.kind != TokenKind::Bracket) continue;
            QString name = NameOf(piece);
            name.replace(u'"', QStringLiteral("\"\""));
            piece.token = {TokenKind::Quoted, piece.token.before, u'"' + name + u'"'};
        }
    }

    const EngineDifferences& engine_;
    const TextRules& rules_;
};

}  // namespace

QString AdaptStatement(QStringView sql, const EngineDifferences& engine, const TextRules& rules) {
    std::optional<StatementTree> tree = ParseStatement(sql);
    if (!tree || tree->level.empty() || !IsOneOf(tree->level.front(), kAdapted)) return sql.toString();
    Adapter(engine, rules).Adapt(tree->level, false);
    return StatementText(*tree);
}

}  // namespace platform
