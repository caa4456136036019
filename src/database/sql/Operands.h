#pragma once

#include <optional>

#include "database/sql/SqlDialect.h"
#include "database/sql/SyntaxTree.h"

namespace database {

// Operands of LIKE and "=". Only those whose two ends are certain may be put into a function: a qualified name, a
// literal, a bracket, or the call of a function.

/// First piece of the operand that ends before `end`; none where no operand ends there.
std::optional<size_t> BeginOfOperand(const NodeList& level, size_t end);
/// The place after the operand that begins at `begin`; none where no operand begins there.
std::optional<size_t> EndOfOperand(const NodeList& level, size_t begin);

/// True where an operand that begins at `begin` is the whole left side: nothing before it binds to it. A literal or a
/// bracket directly before it is a mistake that the engine refuses.
bool StartsExpression(const NodeList& level, size_t begin);
/// True where an expression that reaches up to `end` is complete there.
bool EndsExpression(const NodeList& level, size_t end);

/// `call` is an expression with the word `operand` in it: puts the pieces first to last - 1 in the place of that word,
/// and the call in theirs. Returns the number of pieces there now.
size_t WrapInCall(NodeList& level, size_t first, size_t last, const QString& call);

/// DatabaseError kStatementFailure: the statement can't be put into a server's words, for the reason given.
[[noreturn]] void RefuseStatement(const QString& reason);

}  // namespace database
