#pragma once

#include "database/DatabaseTypes.h"
#include "database/sql/SqlDialect.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// Makes every "=" in a condition of the level that has one of `rules.comparedCaseBlind` on either side ignore the case
/// of ASCII letters. `condition`: the level is a bracket inside a WHERE, ON or HAVING. A comparison without one of its
/// sides is left for the engine to refuse. DatabaseError kStatementFailure where a server's engine needs both sides in
/// a function and their ends are not certain.
void CompareCaseBlind(NodeList& level, bool condition, const SqlDialect& engine, const TextRules& rules);

/// True for a piece of a level that belongs to a condition: `before` is what the piece before it was.
bool IsInCondition(const Node& piece, bool before);

}  // namespace database
