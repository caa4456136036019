#pragma once

#include <sqlite3.h>

#include <QString>
#include <memory>

#include "database/DatabaseError.h"

namespace database {

// Handles of the SQLite library that are freed automatically, and functions on them.

struct SqliteDatabaseCloser {
    void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }

    std::shared_ptr<void> lockWait = {};  ///< of WaitForLocks; the engine has a pointer to it
};
using SqliteDatabase = std::unique_ptr<sqlite3, SqliteDatabaseCloser>;

struct SqliteStatementCloser {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using SqliteStatement = std::unique_ptr<sqlite3_stmt, SqliteStatementCloser>;

/// The last error of this database: the engine's message and the suite's error number. Does not throw it.
EngineError SqliteFailure(sqlite3* database);

/// The DatabaseError number for an error code of the engine, basic or extended.
long NumberOfSqliteCode(int code);

/// Resets a statement at the end of a block, which releases its locks.
class SqliteRun {
  public:
    explicit SqliteRun(sqlite3_stmt* statement) : statement_(statement) {}
    ~SqliteRun() { sqlite3_reset(statement_); }
    SqliteRun(const SqliteRun&) = delete;
    SqliteRun& operator=(const SqliteRun&) = delete;

  private:
    sqlite3_stmt* statement_;
};

/// Runs statements without parameters to their end and ignores their rows. Returns the engine's result code.
int RunPlain(sqlite3* database, const char* sql) noexcept;

/// Sets the busy timeout. A statement that waits for a lock fails with SQLITE_BUSY after `milliseconds` in which the
/// file has not changed. While other programs write to the file, the wait is extended, up to a minute in total; not
/// after a request to end the program.
void WaitForLocks(SqliteDatabase& database, int milliseconds);

/// Name of the collation for columns sorted as text (CompareTexts). Must never be used in a schema: other tools could
/// not open the file then.
inline constexpr const char* kSuiteTextCollation = "SUITE_TEXT";

/// Registers the suite's LIKE (LikePattern), which replaces the engine's, and the collation. Returns the engine's
/// result code.
int AddSuiteText(sqlite3* database);

}  // namespace database
