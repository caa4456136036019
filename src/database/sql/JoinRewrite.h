#pragma once

#include "database/sql/SyntaxTree.h"

namespace database {

/// Turns every `A RIGHT JOIN X ON c` of the level's FROM clause into `X LEFT JOIN A ON c`, inner brackets first:
/// the same rows, but an engine that materialises a bracket on the right of a RIGHT JOIN and scans it once for each
/// row takes twenty times as long for the first. Brackets are kept, and one is added where the left side is a chain.
///
/// A clause that can't be read, or whose SELECT takes a bare "*" (the order of the columns would change, and with
/// it which of two equal names is the first one), stays as it is.
void RewriteRightJoins(NodeList& level);

}  // namespace database
