#pragma once

#include "database/DatabaseTypes.h"
#include "database/sql/SelectNames.h"
#include "database/sql/SqlDialect.h"
#include "database/sql/SyntaxTree.h"

// The rewriters that Adapt (StatementAdapter.h) applies to a statement. A "level" is the contents of one pair of
// brackets or the whole statement (NodeList). Each rewriter changes one level in place; Adapt calls it for every level,
// inner ones first.

namespace database {

/// Rewrites `A RIGHT JOIN X ON c` in the level's FROM clause to `X LEFT JOIN A ON c`, inner brackets first. The rows
/// are the same, but SQLite materialises a bracket on the right of a RIGHT JOIN and scans it once per row, which is
/// twenty times slower. Brackets are kept; one is added if the left side is a chain.
///
/// Left unchanged: a clause that can't be parsed, and a SELECT with a bare "*", whose columns would change their order
/// and so which of two equal names is the first.
void RewriteRightJoins(NodeList& level);

/// Rewrites a list of tables joined in WHERE by "x.a(+) = y.b" to LEFT JOINs; the table marked (+) is the optional one.
/// Other conditions stay in WHERE. A clause that can't be parsed this way is left unchanged.
void RewritePlusOuterJoins(NodeList& level);

/// Brackets OR and AND chains of the level with more than `longest` terms into a tree whose nodes have at most `fanOut`
/// terms: some engines count n terms as a depth of n and reject deep expressions. Order of the terms and meaning are
/// unchanged. Does not descend into brackets.
void BalanceChains(NodeList& level, size_t longest, size_t fanOut = 32);

/// Rewrites each `operand [NOT] LIKE 'pattern' [ESCAPE 'c']` of the level for a server, as engine.like specifies.
/// Throws DatabaseError kStatementFailure if the extent of the operand is ambiguous, the pattern is not a single
/// literal, or a "[" of it is not closed: the server's own LIKE has other rules and must not be used.
void RewriteLike(NodeList& level, const SqlDialect& engine);

/// Makes "=" ignore ASCII case in the conditions of the level if either side is one of `rules.comparedCaseBlind`.
/// `condition`: the level is a bracket inside WHERE, ON or HAVING. A comparison with a missing side is left for the
/// engine to reject. Throws DatabaseError kStatementFailure if a server needs both sides in a function call and the
/// extent of an operand is ambiguous.
void CompareCaseBlind(NodeList& level, bool condition, const SqlDialect& engine, const TextRules& rules);

/// True if `piece` is in a condition (WHERE, ON, HAVING) of its level. `before`: the result for the previous node; for
/// the first one the `condition` of CompareCaseBlind.
bool IsInCondition(const Node& piece, bool before);

/// Translates the level's ORDER BY: columns sorted as text get the collation or sort function, and Nulls an explicit
/// position. The desktop engine gets a collation only on columns given by name, with or without their table; a server
/// also on columns given by position or alias. A server's native text order is never used: throws DatabaseError
/// kStatementFailure for expressions over such columns, with DISTINCT, for a compound, and if the engine has no sort
/// function.
void AdaptOrder(NodeList& level, const SqlDialect& engine, const TextRules& rules, const TextNames& names);

/// For sorting on the client: if the level is a SELECT whose ORDER BY contains a column sorted as text, removes ORDER
/// BY and TOP, appends the keys to the selected columns, and stores keys and limit in `adapted`. To be called for the
/// whole statement before all other rewriters. Throws DatabaseError kStatementFailure if the rows are grouped, DISTINCT
/// or limited in another way, or if a key is not a column.
void TakeOrder(NodeList& level, const TextNames& names, AdaptedStatement& adapted);

}  // namespace database
