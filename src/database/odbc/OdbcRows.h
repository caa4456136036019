#pragma once

#include <memory>

#include "database/ResultTable.h"
#include "database/odbc/OdbcHandle.h"

namespace database {

/// How the texts of an engine are fetched fastest.
enum class OdbcFetch {
    Utf16Blocks,  ///< arrays of rows into bound columns
    Utf8Blocks,   ///< the same, where the driver's UTF-8 is lossless and its UTF-16 several times slower
    Utf16Pieces   ///< value by value: what every driver can do
};

/// Rows of a block: more of them no longer fit into the processor's cache.
inline constexpr int kOdbcRowsInBlock = 100;

/// All rows of a statement that has been run; none where it gives no rows. Texts of any length come whole. Throws
/// DatabaseError, also for a failure in the middle.
std::shared_ptr<ResultTable> ReadOdbcRows(const OdbcStatement& statement, OdbcFetch fetch);

}  // namespace database
