#pragma once

#include <vector>

#include "database/sql/SelectNames.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// One item of an ORDER BY.
struct OrderItem {
    size_t first = 0, expressionEnd = 0;  ///< its expression
    size_t end = 0;                       ///< after its direction
    bool asText = false;                  ///< sorted as text; then `column` is there
    bool descending = false;
    bool placesNulls = false;  ///< has its own NULLS FIRST or LAST
    NodeList column;           ///< the column that it denotes by its name, its alias or its position; else empty
};

/// True where an ORDER BY begins.
bool IsOrder(const NodeList& level, size_t at);

/// The items of the ORDER BY that begins at `order`. DatabaseError kStatementFailure where it is not certain that none
/// but columns are sorted as text.
std::vector<OrderItem> ReadOrder(const NodeList& level, size_t order, const TextNames& names);

/// Throws that DatabaseError.
[[noreturn]] void RefuseOrder();

}  // namespace database
