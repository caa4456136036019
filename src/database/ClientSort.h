#pragma once

#include <memory>

#include "database/ResultTable.h"
#include "database/sql/SqlDialect.h"

namespace database {

/// Sorts rows that the engine cannot sort. The last order.size() columns of `rows` are the keys; the result does not
/// have them. Nulls come first in an ascending key; the sort is stable. At most `limit` rows are returned; a negative
/// limit means all.
std::shared_ptr<ResultTable> SortedRows(const ResultTable& rows, const QList<ProviderKey>& order, int limit);

}  // namespace database
