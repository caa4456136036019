#pragma once

#include <optional>

#include "database/sql/SqlDialect.h"
#include "database/sql/SyntaxTree.h"

namespace database {

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
