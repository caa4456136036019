#pragma once

#include "database/sql/SyntaxTree.h"

namespace database {

/// Rewrites `A RIGHT JOIN X ON c` in the level's FROM clause to `X LEFT JOIN A ON c`, inner brackets first. The rows
/// are the same, but SQLite materialises a bracket on the right of a RIGHT JOIN and scans it once per row, which is
/// twenty times slower. Brackets are kept; one is added if the left side is a chain.
///
/// Left unchanged: a clause that can't be parsed, and a SELECT with a bare "*", whose columns would change their order
/// and so which of two equal names is the first.
void RewriteRightJoins(NodeList& level);

}  // namespace database
