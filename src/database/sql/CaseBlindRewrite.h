#pragma once

#include "database/DatabaseTypes.h"
#include "database/sql/SqlDialect.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// Makes "=" ignore ASCII case in the conditions of the level if either side is one of `rules.comparedCaseBlind`.
/// `condition`: the level is a bracket inside WHERE, ON or HAVING. A comparison with a missing side is left for the
/// engine to reject. Throws DatabaseError kStatementFailure if a server needs both sides in a function call and the
/// extent of an operand is ambiguous.
void CompareCaseBlind(NodeList& level, bool condition, const SqlDialect& engine, const TextRules& rules);

/// True if `piece` is in a condition of its level; `before` is the result for the previous node.
bool IsInCondition(const Node& piece, bool before);

}  // namespace database
