#pragma once

#include <sqlite3.h>

#include <QString>
#include <memory>

#include "database/EngineError.h"

namespace database {

struct SqliteCloser {
    void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using SqliteDatabase = std::unique_ptr<sqlite3, SqliteCloser>;
using SqliteStatement = std::unique_ptr<sqlite3_stmt, SqliteCloser>;

/// The engine's last failure on this database: its own words, and the number that the suite knows it by.
EngineError SqliteFailure(sqlite3* database);

/// Number of a DatabaseError for an (extended) result code of the engine.
long NumberOfSqliteCode(int code);

/// Ends a statement's run, so that it holds no lock, at the end of a block.
class SqliteRun {
  public:
    explicit SqliteRun(sqlite3_stmt* statement) : statement_(statement) {}
    ~SqliteRun() { sqlite3_reset(statement_); }
    SqliteRun(const SqliteRun&) = delete;
    SqliteRun& operator=(const SqliteRun&) = delete;

  private:
    sqlite3_stmt* statement_;
};

/// Runs a fixed statement of ours to its end. The engine's result code.
int RunPlain(sqlite3* database, const char* sql) noexcept;

}  // namespace database
