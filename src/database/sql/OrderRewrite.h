#pragma once

#include "database/DatabaseTypes.h"
#include "database/sql/SelectNames.h"
#include "database/sql/SqlDialect.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// Puts the ORDER BY of the level into the engine's words: columns sorted as text get its collation or its function,
/// and Nulls their place. A collation is given to columns that are named, with or without their table. A server's
/// engine also gets it for the position or the alias of a column; its own order of text is never asked for:
/// DatabaseError kStatementFailure for expressions over such columns, with DISTINCT, for the whole of a compound, and
/// where the engine has no function for it.
void AdaptOrder(NodeList& level, const SqlDialect& engine, const TextRules& rules, const TextNames& names);

/// Where the level is a SELECT with a column sorted as text in its ORDER BY: takes the order and the limit out, adds
/// the keys as columns after the others, and stores both in `adapted`. DatabaseError kStatementFailure where its rows
/// are grouped, made different or limited otherwise, or a key is no column.
void TakeOrder(NodeList& level, const TextNames& names, AdaptedStatement& adapted);

}  // namespace database
