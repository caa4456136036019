#pragma once

#include "platform/DatabaseTypes.h"
#include "platform/database/EngineDifferences.h"
#include "platform/database/StatementTree.h"

namespace platform {

/// Makes every "=" in a condition of the level that has one of `rules.comparedCaseBlind` on either side ignore the case
/// of ASCII letters. `condition`: the level is a bracket inside a WHERE, ON or HAVING. A comparison without one of its
/// sides is left for the engine to refuse. DatabaseError kStatementFailure where a server's engine needs both sides in
/// a function and their ends are not certain.
void CompareCaseBlind(Level& level, bool condition, const EngineDifferences& engine, const TextRules& rules);

/// True for a piece of a level that belongs to a condition: `before` is what the piece before it was.
bool IsInCondition(const Piece& piece, bool before);

}  // namespace platform
