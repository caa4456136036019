#include "platform/database/LikeRewrite.h"

#include <iterator>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/database/PatternText.h"
#include "platform/database/TextFolding.h"

namespace platform {
namespace {

/// One `[NOT] LIKE 'pattern' [ESCAPE 'c']` behind a column.
struct Term {
    size_t column = 0;     // first piece of the column's name
    size_t operation = 0;  // NOT or LIKE
    size_t behind = 0;
    bool negated = false;
    QString pattern;
    std::optional<char32_t> escape;
};

bool IsText(const Level& level, size_t at) {
    return at < level.size() && !level[at].group && level[at].token.kind == TokenKind::Text;
}

QString ValueOf(const Piece& literal) {
    QString value = literal.token.text.mid(1, literal.token.text.size() - 2);
    return value.replace(QStringLiteral("''"), QStringLiteral("'"));
}

std::optional<char32_t> EscapeOf(const Piece& literal) {
    const QByteArray utf8 = ValueOf(literal).toUtf8();
    FoldedReader reader(utf8);
    if (reader.AtEnd()) return std::nullopt;
    const char32_t sign = reader.Next();
    return reader.AtEnd() ? std::optional(sign) : std::nullopt;
}

std::optional<Term> TermAt(const Level& level, size_t like) {
    Term term;
    term.negated = like > 0 && level[like - 1].Is(u"NOT");
    term.operation = like - (term.negated ? 1 : 0);
    if (term.operation == 0 || !level[term.operation - 1].IsName() || !IsText(level, like + 1)) return std::nullopt;
    term.column = BeginOfName(level, term.operation - 1);
    term.pattern = ValueOf(level[like + 1]);
    term.behind = like + 2;
    if (term.behind < level.size() && level[term.behind].Is(u"ESCAPE")) {
        if (!IsText(level, term.behind + 1)) return std::nullopt;
        term.escape = EscapeOf(level[term.behind + 1]);
        if (!term.escape) return std::nullopt;
        term.behind += 2;
    }
    return term;
}

Piece Literal(QString value) {
    value.replace(u'\'', QStringLiteral("''"));
    return {{TokenKind::Text, QStringLiteral(" "), u'\'' + value + u'\''}, false, {}, {}};
}

Piece Sign(const QString& text) { return {{TokenKind::Sign, QStringLiteral(" "), text}, false, {}, {}}; }

LikePattern Compiled(const Term& term) {
    std::optional<LikePattern> pattern = LikePattern::Compile(term.pattern.toUtf8(), term.escape);
    if (!pattern) throw DatabaseError(kStatementFailure, QStringLiteral("LIKE: \"[\" without \"]\""));
    return std::move(*pattern);
}

Level Operation(const Term& term, LikeWriting writing) {
    const LikePattern pattern = Compiled(term);
    Level words;
    if (writing == LikeWriting::RegularExpression) {
        if (term.negated) words.push_back(MakeWord(QStringLiteral("NOT")));
        words.push_back(MakeWord(QStringLiteral("REGEXP")));
        words.push_back(Literal(StoredExpression(pattern)));
        return words;
    }
    const std::optional<QString> plain = FoldedLikeText(pattern);
    if (!plain)
        return {Sign(term.negated ? QStringLiteral("!~") : QStringLiteral("~")), Literal(FoldedExpression(pattern))};
    if (term.negated) words.push_back(MakeWord(QStringLiteral("NOT")));
    for (const Piece& piece :
         {MakeWord(QStringLiteral("LIKE")), Literal(*plain), MakeWord(QStringLiteral("ESCAPE")), Literal({})})
        words.push_back(piece);
    return words;
}

}  // namespace

void RewriteLike(Level& level, const EngineDifferences& engine) {
    for (size_t i = 0; i < level.size(); ++i) {
        if (!level[i].Is(u"LIKE")) continue;
        const std::optional<Term> term = TermAt(level, i);
        if (!term) continue;
        Level words = Operation(*term, engine.like);
        const auto at = [&](size_t place) { return level.begin() + static_cast<std::ptrdiff_t>(place); };
        const size_t count = words.size();
        level.insert(level.erase(at(term->operation), at(term->behind)), std::make_move_iterator(words.begin()),
                     std::make_move_iterator(words.end()));
        i = term->operation + count - 1;
        if (engine.like != LikeWriting::FoldedText) continue;
        const size_t pieces = term->operation - term->column;
        WrapInFunction(level, term->column, term->operation, engine.foldingFunction);
        i = i + 2 - pieces;
    }
}

}  // namespace platform
