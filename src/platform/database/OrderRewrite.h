#pragma once

#include "platform/DatabaseTypes.h"
#include "platform/database/EngineDifferences.h"
#include "platform/database/StatementTree.h"

namespace platform {

/// Puts the ORDER BY of the level into the engine's words: columns sorted as text get its collation or its function,
/// and Nulls their place. An item is a column with or without its table; any expression is left to the engine.
void AdaptOrder(Level& level, const EngineDifferences& engine, const TextRules& rules);

/// Where the level is a SELECT with a column sorted as text in its ORDER BY: takes the order and the limit out, adds
/// the keys as columns behind the others, and tells both in `adapted`. Everything that can't be read so, or whose rows
/// are grouped or made different, stays as it is.
void TakeOrder(Level& level, const TextRules& rules, AdaptedStatement& adapted);

}  // namespace platform
