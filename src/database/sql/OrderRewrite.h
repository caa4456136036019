#pragma once

#include "database/DatabaseTypes.h"
#include "database/sql/SelectNames.h"
#include "database/sql/SqlDialect.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// Translates the level's ORDER BY: columns sorted as text get the collation or sort function, and Nulls an explicit
/// position. The desktop engine gets a collation only on columns given by name, with or without their table; a server
/// also on columns given by position or alias. A server's native text order is never used: throws DatabaseError
/// kStatementFailure for expressions over such columns, with DISTINCT, for a compound, and if the engine has no sort
/// function.
void AdaptOrder(NodeList& level, const SqlDialect& engine, const TextRules& rules, const TextNames& names);

/// For sorting on the client: if the level is a SELECT whose ORDER BY contains a column sorted as text, removes ORDER
/// BY and limit, appends the keys to the selected columns, and stores both in `adapted`. Throws DatabaseError
/// kStatementFailure if the rows are grouped, DISTINCT or limited in another way, or if a key is not a column.
void TakeOrder(NodeList& level, const TextNames& names, AdaptedStatement& adapted);

}  // namespace database
