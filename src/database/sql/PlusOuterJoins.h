#pragma once

#include "database/sql/SyntaxTree.h"

namespace database {

/// Turns a list of tables whose WHERE joins them by "x.a(+) = y.b" into LEFT JOINs: the table on the side of the sign
/// is the one that may lack rows. Everything else of the WHERE stays. A clause that can't be read so stays as it is.
void RewriteSignJoins(NodeList& level);

}  // namespace database
