#pragma once

#include <memory>

#include "database/ResultTable.h"
#include "database/sql/SqlDialect.h"

namespace database {

/// The rows in the order of the keys that stand in the last columns, without these columns; at most `limit` of them
/// where that is not below 0. Nulls come first. Rows with equal keys keep their order.
std::shared_ptr<ResultTable> SortedRows(const ResultTable& rows, const QList<ProviderKey>& order, int limit);

}  // namespace database
