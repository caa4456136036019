#include "database/sql/StatementAdapter.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "database/sql/Quoting.h"
#include "database/sql/Rewriters.h"
#include "database/sql/SyntaxTree.h"

namespace database {
namespace {

constexpr std::array<QStringView, 4> kAdapted = {u"SELECT", u"INSERT", u"UPDATE", u"DELETE"};

template <size_t N>
bool IsOneOf(const Node& piece, const std::array<QStringView, N>& keywords) {
    return std::any_of(keywords.begin(), keywords.end(), [&](QStringView word) { return piece.Is(word); });
}

class Adapter {
  public:
    Adapter(const SqlDialect& engine, const TextRules& rules, const TextNames& names)
        : engine_(engine), rules_(rules), names_(names) {}

    // `condition`: the level is a bracket inside WHERE, ON or HAVING.
    void Adapt(NodeList& level, bool condition) const {
        AdaptGroups(level, condition);
        if (engine_.topIsLimit) MoveTop(level);
        if (engine_.hasPlusOuterJoin) RewritePlusOuterJoins(level);
        if (engine_.flattenRightJoins) RewriteRightJoins(level);
        if (engine_.like != LikeWriting::Own) RewriteLike(level, engine_);
        AdaptOrder(level, engine_, rules_, names_);
        if (!rules_.comparedCaseBlind.isEmpty()) CompareCaseBlind(level, condition, engine_, rules_);
        BalanceChains(level, engine_.longestChain);
        if (engine_.bracketQuotedNames) Requote(level);
    }

  private:
    void AdaptGroups(NodeList& level, bool condition) const {
        for (Node& piece : level) {
            condition = IsInCondition(piece, condition);
            if (piece.group) Adapt(piece.inside, condition);
        }
    }

    static void MoveTop(NodeList& level) {
        std::optional<Node> count = TakeTop(level);
        if (!count) return;
        const auto end =
            std::find_if(level.begin(), level.end(), [](const Node& piece) { return piece.IsPunctuation(u";"); });
        level.insert(level.insert(end, std::move(*count)), MakeWord(QStringLiteral("LIMIT")));
    }

    // Descends into brackets too: earlier rewrites may have enclosed names in brackets.
    void Requote(NodeList& level) const {
        for (Node& piece : level) {
            if (piece.group) Requote(piece.inside);
            const bool quoted = !piece.group && piece.token.kind == TokenKind::Quoted && piece.token.text[0] == u'"';
            if (piece.group || (piece.token.kind != TokenKind::Bracket && !(quoted && engine_.namesAreLowerCase)))
                continue;
            QString name = NameOf(piece);
            if (engine_.namesAreLowerCase) name = LowerAscii(name);
            piece.token = {TokenKind::Quoted, piece.token.leadingTrivia, QuotedName(name)};
        }
    }

    // PostgreSQL folds unquoted names to lower case.
    static QString LowerAscii(QString name) {
        for (QChar& unit : name)
            if (unit >= u'A' && unit <= u'Z') unit = QChar(unit.unicode() | 0x20);
        return name;
    }

    const SqlDialect& engine_;
    const TextRules& rules_;
    const TextNames& names_;
};

bool IsServer(const SqlDialect& engine) { return engine.like != LikeWriting::Own; }

bool HasWordsOf(const std::vector<Token>& tokens, size_t at) {
    if (tokens[at].Is(u"LIKE")) return at == 0 || tokens[at - 1].text != u".";
    return tokens[at].Is(u"ORDER") && tokens[at + 1].Is(u"BY");
}

// The text is sent unchanged. That is safe only if unbalanced brackets or an unclosed quote make the engine reject it;
// otherwise it would run with the engine's own LIKE and sort order.
void RefuseUnreadText(QStringView sql) {
    const std::vector<Token> tokens = SplitStatement(sql);
    int depth = 0;
    bool words = false;
    for (size_t at = 0; at + 1 < tokens.size(); ++at) {
        if (tokens[at].kind == TokenKind::Invalid) return;
        words = words || HasWordsOf(tokens, at);
        if (tokens[at].kind != TokenKind::Punctuation) continue;
        depth += tokens[at].text == u"(" ? 1 : tokens[at].text == u")" ? -1 : 0;
        if (depth < 0) return;
    }
    if (words && depth == 0)
        RefuseStatement(QStringLiteral("この SQL 文の LIKE または ORDER BY はサーバーの検索に置き換えられません。"));
}

// Some comments contain statements, servers end comments differently, or read "--" as two operators.
void DropComments(QString& before) {
    const auto blank = [](QChar unit) {
        return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r' || unit == u'\f';
    };
    if (!std::all_of(before.begin(), before.end(), blank)) before = QStringLiteral(" ");
}

void DropComments(NodeList& level) {
    for (Node& piece : level) {
        DropComments(piece.token.leadingTrivia);
        DropComments(piece.inside);
        DropComments(piece.close.leadingTrivia);
    }
}

}  // namespace

AdaptedStatement Adapt(QStringView sql, const SqlDialect& engine, const TextRules& rules) {
    std::optional<SyntaxTree> tree = ParseStatement(sql);
    const bool server = IsServer(engine);
    if (!tree || tree->level.empty() || !IsOneOf(tree->level.front(), kAdapted)) {
        if (server) RefuseUnreadText(sql);
        return {sql.toString(), {}, -1};
    }
    if (server) {
        DropComments(tree->level);
        DropComments(tree->trailingTrivia);
    }
    const TextNames names = server ? TextNames(tree->level, rules) : TextNames({}, {});
    AdaptedStatement adapted;
    // Before TOP becomes LIMIT: rows to be sorted on the client must not be limited by the server.
    if (engine.sortsOnClient) TakeOrder(tree->level, names, adapted);
    Adapter(engine, rules, names).Adapt(tree->level, false);
    adapted.text = StatementText(*tree);
    return adapted;
}

QString AdaptStatement(QStringView sql, const SqlDialect& engine, const TextRules& rules) {
    return Adapt(sql, engine, rules).text;
}

}  // namespace database
