#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>
#include <vector>

#include "database/sql/Tokenizer.h"

// Syntax tree of an SQL statement: nested lists of tokens. Clauses are found when a rewriter needs them.

namespace database {

// A statement as a tree of brackets, and functions to read and change it. `level` is always one list of nodes;
// positions are indexes in it. Keywords ignore case.

struct Node;
/// The contents of a pair of round brackets, or the whole statement.
using NodeList = std::vector<Node>;

/// A token, or a pair of round brackets with its contents.
struct Node {
    Token token;  // of a group: the opening bracket
    bool group = false;
    NodeList inside;
    Token close;  // the closing bracket; of a group only

    bool Is(QStringView keyword) const { return !group && token.Is(keyword); }
    bool IsPunctuation(QStringView text) const {
        return !group && token.kind == TokenKind::Punctuation && token.text == text;
    }
    /// True for a name, quoted or not; keywords are names too.
    bool IsName() const;
};

/// A parsed statement.
struct SyntaxTree {
    NodeList level;          // the whole statement
    QString trailingTrivia;  // blanks and comments after the last token
};

/// Parses one statement. nullopt if brackets don't match or are nested more than 200 deep, a quote is not closed, or a
/// second statement follows.
std::optional<SyntaxTree> ParseStatement(QStringView sql);

/// Converts the tree to text. An unmodified tree yields the original text exactly.
QString StatementText(const SyntaxTree& tree);

/// A keyword or operator, preceded by a blank.
Node MakeWord(const QString& text);
/// `inside`, which must not be empty, in brackets; its leading blanks and comments move before the opening bracket.
Node MakeGroup(NodeList inside);
/// Replaces nodes first to last - 1 by a call of `function` with them as the argument; the call is two nodes. Unless
/// `collation` is empty, COLLATE and its name are added to the argument.
void WrapInFunction(NodeList& level, size_t first, size_t last, const QString& function, const QString& collation = {});
/// Inserts COLLATE and the collation's name before index `at`.
void InsertCollation(NodeList& level, size_t at, const QString& collation);
/// The name without its [] or "" quotes.
QString NameOf(const Node& piece);

/// True if the node is a name in `columns`, ignoring case. For a qualified name, pass its last node.
bool IsColumnOf(const QStringList& columns, const Node& piece);
/// First index of the qualified name ("table.column") whose last node is `last`.
size_t BeginOfName(const NodeList& level, size_t last);
/// Index after the qualified name that begins at `first`.
size_t EndOfName(const NodeList& level, size_t first);
/// Removes "TOP n" from the level's SELECT and returns n, preceded by a blank. nullopt without TOP, for TOP n PERCENT,
/// and in a compound (UNION etc.).
std::optional<Node> TakeTop(NodeList& level);

/// First index from `from` on of a keyword that ends a FROM clause, or of ";"; the level's size if there is none.
size_t EndOfFrom(const NodeList& level, size_t from);
/// True if a join operator begins at `at`: JOIN, or LEFT, RIGHT, INNER etc. before JOIN or OUTER.
bool StartsJoin(const NodeList& level, size_t at);

// Operands of LIKE and "=". An operand is a qualified name, a literal, a bracket, or a function call. It can be wrapped
// in a function call only if it is the whole side of the comparison, which the last two functions check.

/// Index of the first node of the operand that ends before `end`; nullopt if no operand ends there.
std::optional<size_t> BeginOfOperand(const NodeList& level, size_t end);
/// Index after the operand that begins at `begin`; nullopt if no operand begins there.
std::optional<size_t> EndOfOperand(const NodeList& level, size_t begin);

/// True if an expression starts at the operand at `begin`: no operator before it binds to it. True also for a name
/// directly after a literal or a bracket, a syntax error that the engine reports.
bool StartsExpression(const NodeList& level, size_t begin);
/// True if an expression ends before `end`: no operator there binds to it.
bool EndsExpression(const NodeList& level, size_t end);

/// Replaces nodes first to last - 1 by `call`, an expression in the engine's syntax, in which they replace the name
/// `operand`. Returns the number of nodes that the call has in the level.
size_t WrapInCall(NodeList& level, size_t first, size_t last, const QString& call);

/// Throws DatabaseError kStatementFailure: the statement can't be translated for a server, for the given reason.
[[noreturn]] void RefuseStatement(const QString& reason);

}  // namespace database
