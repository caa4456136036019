#include "database/sql/SyntaxTree.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace database {
namespace {

constexpr int kDeepest = 200;

constexpr std::array<QStringView, 9> kBehindFrom = {u"WHERE", u"GROUP",  u"HAVING",    u"ORDER", u"LIMIT",
                                                    u"UNION", u"EXCEPT", u"INTERSECT", u"WINDOW"};
constexpr std::array<QStringView, 3> kCompounds = {u"UNION", u"EXCEPT", u"INTERSECT"};
constexpr std::array<QStringView, 6> kBeforeJoin = {u"LEFT", u"RIGHT", u"INNER", u"FULL", u"CROSS", u"NATURAL"};

template <size_t N>
bool IsOneOf(const Node& piece, const std::array<QStringView, N>& keywords) {
    return std::any_of(keywords.begin(), keywords.end(), [&](QStringView word) { return piece.Is(word); });
}

class Builder {
  public:
    explicit Builder(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

    bool Build(NodeList& level, int depth) {
        if (depth > kDeepest) return false;
        for (;;) {
            Token& token = tokens_[at_];
            const bool punctuation = token.kind == TokenKind::Punctuation;
            if (token.kind == TokenKind::Invalid) return false;
            if (token.kind == TokenKind::End || (punctuation && token.text == u")")) return true;
            ++at_;
            Node piece{std::move(token), false, {}, {}};
            if (punctuation && piece.token.text == u"(" && !BuildGroup(piece, depth)) return false;
            level.push_back(std::move(piece));
        }
    }
    const Token& Current() const { return tokens_[at_]; }

  private:
    bool BuildGroup(Node& piece, int depth) {
        piece.group = true;
        if (!Build(piece.inside, depth + 1) || Current().kind == TokenKind::End) return false;
        piece.close = tokens_[at_++];
        return true;
    }

    std::vector<Token> tokens_;
    size_t at_ = 0;
};

bool IsSingle(const NodeList& level) {
    const auto semicolon =
        std::find_if(level.begin(), level.end(), [](const Node& piece) { return piece.IsPunctuation(u";"); });
    return std::all_of(semicolon, level.end(), [](const Node& piece) { return piece.IsPunctuation(u";"); });
}

void AppendToken(QString& text, const Token& token) { text.append(token.leadingTrivia).append(token.text); }

void AppendLevel(QString& text, const NodeList& level) {
    for (const Node& piece : level) {
        AppendToken(text, piece.token);
        if (!piece.group) continue;
        AppendLevel(text, piece.inside);
        AppendToken(text, piece.close);
    }
}

}  // namespace

bool Node::IsName() const {
    return !group &&
           (token.kind == TokenKind::Word || token.kind == TokenKind::Quoted || token.kind == TokenKind::Bracket);
}

std::optional<SyntaxTree> ParseStatement(QStringView sql) {
    Builder builder(SplitStatement(sql));
    SyntaxTree tree;
    if (!builder.Build(tree.level, 0) || builder.Current().kind != TokenKind::End) return std::nullopt;
    if (!IsSingle(tree.level)) return std::nullopt;
    tree.trailingTrivia = builder.Current().leadingTrivia;
    return tree;
}

QString StatementText(const SyntaxTree& tree) {
    QString text;
    AppendLevel(text, tree.level);
    return text.append(tree.trailingTrivia);
}

Node MakeWord(const QString& text) { return {{TokenKind::Word, QStringLiteral(" "), text}, false, {}, {}}; }

Node MakeGroup(NodeList inside) {
    QString before = std::exchange(inside.front().token.leadingTrivia, QString());
    return {{TokenKind::Punctuation, std::move(before), QStringLiteral("(")},
            true,
            std::move(inside),
            {TokenKind::Punctuation, QString(), QStringLiteral(")")}};
}

QString NameOf(const Node& piece) {
    const QString& text = piece.token.text;
    if (piece.token.kind == TokenKind::Word) return text;
    QString name = text.mid(1, text.size() - 2);
    if (piece.token.kind == TokenKind::Quoted) name.replace(QString(2, text[0]), QString(text[0]));
    return name;
}

void InsertCollation(NodeList& level, size_t at, const QString& collation) {
    const std::array<Node, 2> words = {MakeWord(QStringLiteral("COLLATE")), MakeWord(collation)};
    level.insert(level.begin() + static_cast<std::ptrdiff_t>(at), words.begin(), words.end());
}

void WrapInFunction(NodeList& level, size_t first, size_t last, const QString& function, const QString& collation) {
    const auto begin = level.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = level.begin() + static_cast<std::ptrdiff_t>(last);
    NodeList inside(std::make_move_iterator(begin), std::make_move_iterator(end));
    Node name = MakeWord(function);
    name.token.leadingTrivia = std::exchange(inside.front().token.leadingTrivia, QString());
    if (!collation.isEmpty()) InsertCollation(inside, inside.size(), collation);
    const std::array<Node, 2> call = {std::move(name), MakeGroup(std::move(inside))};
    level.insert(level.erase(begin, end), call.begin(), call.end());
}

bool IsColumnOf(const QStringList& columns, const Node& piece) {
    return piece.IsName() && columns.contains(NameOf(piece), Qt::CaseInsensitive);
}

size_t BeginOfName(const NodeList& level, size_t last) {
    while (last >= 2 && level[last - 1].IsPunctuation(u".")) last -= 2;
    return last;
}

size_t EndOfName(const NodeList& level, size_t first) {
    while (first + 2 < level.size() && level[first + 1].IsPunctuation(u".")) first += 2;
    return first + 1;
}

// In a compound LIMIT applies to the whole result, which changes the meaning, so TOP is left there.
std::optional<Node> TakeTop(NodeList& level) {
    const auto compound = [](const Node& piece) { return IsOneOf(piece, kCompounds); };
    if (std::any_of(level.begin(), level.end(), compound)) return std::nullopt;
    auto at = std::find_if(level.begin(), level.end(), [](const Node& piece) { return piece.Is(u"SELECT"); });
    if (at == level.end()) return std::nullopt;
    ++at;
    while (at != level.end() && (at->Is(u"DISTINCT") || at->Is(u"ALL"))) ++at;
    if (level.end() - at < 3 || !at->Is(u"TOP") || at[1].group || at[1].token.kind != TokenKind::Number)
        return std::nullopt;
    if (at[2].Is(u"PERCENT")) return std::nullopt;
    Node count = std::move(at[1]);
    count.token.leadingTrivia = QStringLiteral(" ");
    level.erase(at, at + 2);
    return count;
}

size_t EndOfFrom(const NodeList& level, size_t from) {
    while (from < level.size() && !IsOneOf(level[from], kBehindFrom) && !level[from].IsPunctuation(u";")) ++from;
    return from;
}

bool StartsJoin(const NodeList& level, size_t at) {
    if (level[at].Is(u"JOIN")) return true;
    if (!IsOneOf(level[at], kBeforeJoin) || at + 1 >= level.size()) return false;
    const Node& next = level[at + 1];
    return next.Is(u"JOIN") || next.Is(u"OUTER") || IsOneOf(next, kBeforeJoin);
}

}  // namespace database
