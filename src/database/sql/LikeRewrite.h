#pragma once

#include "database/sql/SqlDialect.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// Rewrites each `operand [NOT] LIKE 'pattern' [ESCAPE 'c']` of the level as engine.like says. A server's LIKE has
/// other rules and is never sent: throws DatabaseError kStatementFailure if the extent of the operand is ambiguous, the
/// pattern is not a single literal, or a "[" of it is not closed.
void RewriteLike(NodeList& level, const SqlDialect& engine);

}  // namespace database
