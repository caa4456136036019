#pragma once

#include <memory>

#include "database/ResultTable.h"
#include "database/odbc/OdbcHandle.h"

namespace database {

/// The fastest way to fetch text from an engine's driver.
enum class OdbcFetch {
    Utf16Blocks,  ///< arrays of rows into bound columns
    Utf8Blocks,   ///< as Utf16Blocks, for drivers whose UTF-8 is lossless and UTF-16 several times slower
    Utf16Pieces   ///< value by value; works with every driver
};

/// Rows per block; larger blocks exceed the processor's cache.
inline constexpr int kOdbcRowsInBlock = 100;

/// Reads all rows of an executed statement, with values of any length; an empty result if it returns no rows. Throws
/// DatabaseError, also for a failure halfway.
std::shared_ptr<ResultTable> ReadOdbcRows(const OdbcStatement& statement, OdbcFetch fetch);

}  // namespace database
