#pragma once

#include "platform/database/EngineDifferences.h"
#include "platform/database/StatementTree.h"

namespace platform {

/// Rewrites every `column LIKE 'pattern'` of the level, NOT and ESCAPE included, as the engine's table tells. Where the
/// left side is no column or the right side no literal, it stays the engine's own LIKE. kStatementFailure for a pattern
/// whose "[" is not closed.
void RewriteLike(Level& level, const EngineDifferences& engine);

}  // namespace platform
