#pragma once

#include <sqlite3.h>

namespace database {

/// Name of the collation for ORDER BY on names, kana and addresses. Must never be used in a schema: other tools could
/// not open the file then.
inline constexpr const char* kSuiteTextCollation = "SUITE_TEXT";

/// Registers the suite's LIKE, which replaces the engine's, and the collation. Returns the engine's result code.
int AddSuiteText(sqlite3* database);

}  // namespace database
