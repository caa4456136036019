#pragma once

#include <sqlite3.h>

#include <QString>
#include <memory>

#include "database/EngineError.h"

namespace database {

struct SqliteDatabaseCloser {
    void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }

    std::shared_ptr<void> lockWait = {};  ///< of WaitForLocks; the engine has a pointer to it
};
using SqliteDatabase = std::unique_ptr<sqlite3, SqliteDatabaseCloser>;

struct SqliteStatementCloser {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using SqliteStatement = std::unique_ptr<sqlite3_stmt, SqliteStatementCloser>;

/// The last error of this database: the engine's message and the suite's error number.
EngineError SqliteFailure(sqlite3* database);

/// The DatabaseError number for a result code of the engine, basic or extended.
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

/// Runs a fixed statement to its end. Returns the engine's result code.
int RunPlain(sqlite3* database, const char* sql) noexcept;

}  // namespace database
