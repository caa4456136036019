#pragma once

#include <vector>

#include "database/sql/SelectNames.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// One item of an ORDER BY; positions are indexes of nodes.
struct OrderItem {
    size_t first = 0, expressionEnd = 0;  ///< the expression
    size_t end = 0;                       ///< after ASC or DESC
    bool asText = false;                  ///< sorted by the suite's collation; `column` is set
    bool descending = false;
    bool placesNulls = false;  ///< has NULLS FIRST or NULLS LAST
    NodeList column;           ///< the column it refers to by name, alias or position; else empty
};

/// True if an ORDER BY begins at `at`.
bool IsOrder(const NodeList& level, size_t at);

/// Items of the ORDER BY at index `order`. Throws DatabaseError kStatementFailure if an item other than a plain column
/// may have to be sorted as text.
std::vector<OrderItem> ReadOrder(const NodeList& level, size_t order, const TextNames& names);

/// Throws that error.
[[noreturn]] void RefuseOrder();

}  // namespace database
