#pragma once

#include "database/sql/SqlDialect.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// Rewrites every `operand LIKE 'pattern'` of the level, NOT and ESCAPE included, as the engine's table says. The
/// engine's own LIKE compares otherwise and is never sent: DatabaseError kStatementFailure where the operand's ends are
/// not certain, where the pattern is no single literal, and for a pattern whose "[" is not closed.
void RewriteLike(NodeList& level, const SqlDialect& engine);

}  // namespace database
