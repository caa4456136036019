#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>
#include <vector>

#include "database/sql/Tokenizer.h"

namespace database {

struct Node;
/// What stands between two round brackets, or the whole statement.
using NodeList = std::vector<Node>;

/// A token, or a pair of round brackets with what is inside.
struct Node {
    Token token;  // of a group: the opening bracket
    bool group = false;
    NodeList inside;
    Token close;  // of a group only

    bool Is(QStringView keyword) const { return !group && token.Is(keyword); }
    bool IsSign(QStringView sign) const { return !group && token.kind == TokenKind::Sign && token.text == sign; }
    bool IsName() const;
};

struct SyntaxTree {
    NodeList level;
    QString behind;  // blanks and comments behind the last token
};

/// None where the brackets don't match, a quote is open, brackets stand more than 200 deep or a second statement
/// follows: such text goes to the engine as it is, which has its own words for it.
std::optional<SyntaxTree> ParseStatement(QStringView sql);

/// The text of the tree. Untouched, it is the statement character by character.
QString StatementText(const SyntaxTree& tree);

/// A keyword or sign with one blank in front.
Node MakeWord(const QString& text);
/// Brackets around `inside`, which keeps its text; the blanks in front of it move in front of the bracket.
Node MakeGroup(NodeList inside);
/// Name(…) around pieces first to last - 1, which stand behind the function's bracket with `collation` where one is
/// given: two pieces in their place.
void WrapInFunction(NodeList& level, size_t first, size_t last, const QString& function, const QString& collation = {});
/// COLLATE and the collation's name at a place.
void InsertCollation(NodeList& level, size_t at, const QString& collation);
/// Plain name without [] or "" around it.
QString NameOf(const Node& piece);

/// True for a name, with or without its table in front, that is one of the columns.
bool IsColumnOf(const QStringList& columns, const Node& piece);
/// Where the qualified name that ends at that place begins, and where the one that begins there ends (behind it).
size_t BeginOfName(const NodeList& level, size_t last);
size_t EndOfName(const NodeList& level, size_t first);
/// Takes "TOP n" out of a SELECT that is no part of a compound, and gives n with a blank in front.
std::optional<Node> TakeTop(NodeList& level);

/// First place at or behind `from` where one of the keywords that end a FROM clause stands, or a ";"; else the end.
size_t EndOfFrom(const NodeList& level, size_t from);
/// True where a join operator begins: JOIN, or LEFT, RIGHT, INNER and so on before JOIN or OUTER.
bool StartsJoin(const NodeList& level, size_t at);

}  // namespace database
