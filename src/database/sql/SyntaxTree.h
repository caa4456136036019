#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>
#include <vector>

#include "database/sql/Tokenizer.h"

// Syntax tree of an SQL statement: nested lists of tokens. Clauses are found when a rewriter needs them.

namespace database {

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

struct SyntaxTree {
    NodeList level;
    QString trailingTrivia;  // blanks and comments after the last token
};

/// Parses one statement. Empty if brackets don't match or are nested more than 200 deep, a quote is not closed, or a
/// second statement follows; the caller then passes the text unchanged for the engine to report.
std::optional<SyntaxTree> ParseStatement(QStringView sql);

/// Converts the tree to text. An unmodified tree yields the original text exactly.
QString StatementText(const SyntaxTree& tree);

/// A keyword or operator, preceded by a blank.
Node MakeWord(const QString& text);
/// Encloses `inside`, which must not be empty, in brackets; leading blanks move before the opening bracket.
Node MakeGroup(NodeList inside);
/// Replaces nodes first to last - 1 by a call of `function` on them, which is two nodes. With `collation`, COLLATE is
/// added to the argument.
void WrapInFunction(NodeList& level, size_t first, size_t last, const QString& function, const QString& collation = {});
/// Inserts COLLATE and the collation's name before index `at`.
void InsertCollation(NodeList& level, size_t at, const QString& collation);
/// The name without its [] or "" quotes.
QString NameOf(const Node& piece);

/// True for a name, even one qualified by a table, that is in `columns`, ignoring case.
bool IsColumnOf(const QStringList& columns, const Node& piece);
/// First index of the qualified name whose last node is `last`, and index after the one that begins at `first`.
size_t BeginOfName(const NodeList& level, size_t last);
size_t EndOfName(const NodeList& level, size_t first);
/// Removes "TOP n" from a SELECT that is not part of a compound, and returns n, preceded by a blank.
std::optional<Node> TakeTop(NodeList& level);

/// First index from `from` on of a keyword that ends a FROM clause, or of ";"; the level's size if there is none.
size_t EndOfFrom(const NodeList& level, size_t from);
/// True if a join operator begins at `at`: JOIN, or LEFT, RIGHT, INNER etc. before JOIN or OUTER.
bool StartsJoin(const NodeList& level, size_t at);

// Operands of LIKE and "=". Only operands of unambiguous extent are wrapped in a function call: a qualified name, a
// literal, a bracket, or a function call.

/// Index of the first node of the operand that ends before `end`; empty if no operand ends there.
std::optional<size_t> BeginOfOperand(const NodeList& level, size_t end);
/// Index after the operand that begins at `begin`; empty if no operand begins there.
std::optional<size_t> EndOfOperand(const NodeList& level, size_t begin);

/// True if an operand that begins at `begin` is the whole left side, so that no operator before it binds to it. A
/// literal or bracket directly before it is a syntax error, left for the engine to reject.
bool StartsExpression(const NodeList& level, size_t begin);
/// True if an expression that ends at `end` is complete, so that no operator after it binds to it.
bool EndsExpression(const NodeList& level, size_t end);

/// `call` is an expression in the engine's syntax with a placeholder named `operand`. Replaces nodes first to last - 1
/// by the call around them, and returns the number of nodes of the call.
size_t WrapInCall(NodeList& level, size_t first, size_t last, const QString& call);

/// Throws DatabaseError kStatementFailure: the statement can't be translated for a server, for the given reason.
[[noreturn]] void RefuseStatement(const QString& reason);

}  // namespace database
