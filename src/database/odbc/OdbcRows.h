#pragma once

#include <memory>

#include "database/ResultTable.h"
#include "database/odbc/OdbcHandle.h"

namespace database {

/// The fastest way to fetch the text of an engine.
enum class OdbcFetch {
    Utf16Blocks,  ///< arrays of rows into bound columns
    Utf8Blocks,   ///< the same, where the driver's UTF-8 is lossless and its UTF-16 several times slower
    Utf16Pieces   ///< value by value: what every driver can do
};

/// Rows per block; larger blocks exceed the processor's cache.
inline constexpr int kOdbcRowsInBlock = 100;

/// Reads all rows of an executed statement, with values of any length; an empty result if it returns no rows. Throws
/// DatabaseError, also for a failure halfway.
std::shared_ptr<ResultTable> ReadOdbcRows(const OdbcStatement& statement, OdbcFetch fetch);

}  // namespace database
