#pragma once

#include "database/sql/SyntaxTree.h"

namespace database {

/// Rewrites a list of tables joined in WHERE by "x.a(+) = y.b" to LEFT JOINs; the table marked (+) is the optional one.
/// Other conditions stay in WHERE. A clause that can't be parsed this way is left unchanged.
void RewriteSignJoins(NodeList& level);

}  // namespace database
