#pragma once

#include <sqlite3.h>

namespace database {

/// Name of the collation that ORDER BY on names, kana and addresses gets. It must never stand in a schema: other
/// tools could not read the file then.
inline constexpr const char* kSuiteTextCollation = "SUITE_TEXT";

/// Gives a connection the suite's LIKE, in place of the engine's, and its text order. The engine's result code.
int AddSuiteText(sqlite3* database);

}  // namespace database
