// Part of Rewriters.h: RewriteLike.

#include "database/sql/Quoting.h"
#include "database/sql/Rewriters.h"

#include <iterator>
#include <utility>

#include "database/DatabaseError.h"
#include "database/collation/LikePattern.h"
#include "database/collation/TextFolding.h"
#include "database/sql/SyntaxTree.h"

namespace database {
namespace {

/// One `[NOT] LIKE 'pattern' [ESCAPE 'c']` and the operand before it; positions are indexes of nodes.
struct Term {
    size_t operand = 0;    // first node
    size_t operation = 0;  // NOT or LIKE
    size_t end = 0;
    bool negated = false;
    QString pattern;
    std::optional<char32_t> escape;
};

[[noreturn]] void RefuseLike() {
    RefuseStatement(
        QStringLiteral("この LIKE はサーバーの検索に置き換えられません。列 LIKE '文字列' の形で指定してください。"));
}

QString ValueOf(const Node& literal) {
    QString value = literal.token.text.mid(1, literal.token.text.size() - 2);
    return value.replace(QStringLiteral("''"), QStringLiteral("'"));
}

// The value of a text literal, which may be bracketed.
QString TextAt(const NodeList& level, size_t at) {
    if (at >= level.size()) RefuseLike();
    const Node& piece = level[at];
    if (piece.group && piece.inside.size() == 1) return TextAt(piece.inside, 0);
    if (piece.group || piece.token.kind != TokenKind::Text) RefuseLike();
    return ValueOf(piece);
}

char32_t EscapeOf(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    FoldedReader reader(utf8);
    const char32_t character = reader.AtEnd() ? 0 : reader.Next();
    if (character == 0 || !reader.AtEnd()) RefuseLike();
    return character;
}

Term TermAt(const NodeList& level, size_t like) {
    Term term;
    term.negated = like > 0 && level[like - 1].Is(u"NOT");
    term.operation = like - (term.negated ? 1 : 0);
    const std::optional<size_t> operand = BeginOfOperand(level, term.operation);
    if (!operand || !StartsExpression(level, *operand)) RefuseLike();
    term.operand = *operand;
    term.pattern = TextAt(level, like + 1);
    term.end = like + 2;
    if (term.end < level.size() && level[term.end].Is(u"ESCAPE")) {
        term.escape = EscapeOf(TextAt(level, term.end + 1));
        term.end += 2;
    }
    if (!EndsExpression(level, term.end)) RefuseLike();
    return term;
}

// A column name, quoted or after ".", is no operator. A call of a function named LIKE counts even if quoted, since it
// would run the engine's LIKE.
bool IsLike(const NodeList& level, size_t at) {
    const bool called = at + 1 < level.size() && level[at + 1].group;
    if (called && level[at].IsName() && NameOf(level[at]).compare(u"LIKE", Qt::CaseInsensitive) == 0) return true;
    return level[at].Is(u"LIKE") && (at == 0 || !level[at - 1].IsPunctuation(u"."));
}

Node Literal(const QString& value) {
    return {{TokenKind::Text, QStringLiteral(" "), TextLiteral(value)}, false, {}, {}};
}

Node Operator(const QString& text) { return {{TokenKind::Punctuation, QStringLiteral(" "), text}, false, {}, {}}; }

LikePattern Compiled(const Term& term) {
    std::optional<LikePattern> pattern = LikePattern::Compile(term.pattern.toUtf8(), term.escape);
    if (!pattern) RefuseStatement(QStringLiteral("LIKE: \"[\" without \"]\""));
    return std::move(*pattern);
}

NodeList Operation(const Term& term, LikeWriting writing) {
    const LikePattern pattern = Compiled(term);
    NodeList words;
    if (writing == LikeWriting::RegularExpression) {
        if (term.negated) words.push_back(MakeWord(QStringLiteral("NOT")));
        words.push_back(MakeWord(QStringLiteral("REGEXP")));
        words.push_back(Literal(StoredExpression(pattern)));
        return words;
    }
    const std::optional<QString> plain = FoldedLikeText(pattern);
    if (!plain)
        return {Operator(term.negated ? QStringLiteral("!~") : QStringLiteral("~")),
                Literal(FoldedExpression(pattern))};
    if (term.negated) words.push_back(MakeWord(QStringLiteral("NOT")));
    for (const Node& piece :
         {MakeWord(QStringLiteral("LIKE")), Literal(*plain), MakeWord(QStringLiteral("ESCAPE")), Literal({})})
        words.push_back(piece);
    return words;
}

}  // namespace

void RewriteLike(NodeList& level, const SqlDialect& engine) {
    for (size_t i = 0; i < level.size(); ++i) {
        if (!IsLike(level, i)) continue;
        const Term term = TermAt(level, i);
        NodeList words = Operation(term, engine.like);
        const auto at = [&](size_t place) { return level.begin() + static_cast<std::ptrdiff_t>(place); };
        const size_t count = words.size();
        level.insert(level.erase(at(term.operation), at(term.end)), std::make_move_iterator(words.begin()),
                     std::make_move_iterator(words.end()));
        i = term.operation + count - 1;
        if (engine.like != LikeWriting::FoldedText) continue;
        WrapInFunction(level, term.operand, term.operation, engine.foldingFunction);
        i = i + 2 - (term.operation - term.operand);
    }
}

}  // namespace database
