#pragma once

#include <sql.h>
#include <sqlext.h>

#include <QString>
#include <QStringView>
#include <memory>
#include <utility>

#include "database/DatabaseError.h"
#include "database/ResultTable.h"
#include "database/odbc/OdbcWatchdog.h"

namespace database {

/// The error of the last call on a handle, from its diagnostic records: their messages without the prefixes of driver
/// manager and driver, joined by blanks, and the number of the first one (NumberOfOdbcState). Does not throw it.
EngineError OdbcFailure(SQLSMALLINT type, SQLHANDLE handle);

/// The DatabaseError number for an SQLSTATE and the engine's native error code.
long NumberOfOdbcState(QStringView state, long code);

/// RAII owner of a driver manager handle.
template <SQLSMALLINT Type>
class OdbcHandle {
  public:
    OdbcHandle() = default;
    /// Allocates the handle. Throws the parent's OdbcFailure.
    OdbcHandle(SQLSMALLINT parentType, SQLHANDLE parent) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(Type, parent, &handle_))) throw OdbcFailure(parentType, parent);
    }
    ~OdbcHandle() {
        if (handle_ != nullptr) SQLFreeHandle(Type, handle_);
    }
    OdbcHandle(OdbcHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    OdbcHandle& operator=(OdbcHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    SQLHANDLE Get() const { return handle_; }
    /// The destructor will not free the handle.
    void Abandon() { handle_ = nullptr; }
    /// Throws OdbcFailure if `result`, of a call on this handle, is a failure.
    void Check(SQLRETURN result) const {
        if (!SQL_SUCCEEDED(result)) throw OdbcFailure(Type, handle_);
    }

  private:
    SQLHANDLE handle_ = nullptr;
};

using OdbcEnvironment = OdbcHandle<SQL_HANDLE_ENV>;
using OdbcStatement = OdbcHandle<SQL_HANDLE_STMT>;

/// A connection to a server. The destructor disconnects under the watchdog's timeout; if a cancel still uses the
/// connection, it is left open.
class OdbcConnection {
  public:
    /// Connects. `text`: the driver manager's connection string (OdbcConnectionText); `loginSeconds`: connection
    /// timeout in the driver; `answerSeconds`: timeout of each later reply, after which the connection is shut down and
    /// every call on it fails; 0 waits forever. Throws DatabaseError.
    OdbcConnection(const QString& text, int loginSeconds, int answerSeconds);
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;

    SQLHANDLE Get() const { return handle_.Get(); }
    /// A string value of SQLGetInfo, such as SQL_DBMS_NAME. Throws DatabaseError.
    QString Information(SQLUSMALLINT which) const;
    /// Sets the statement timeout in the driver for all later statements, for drivers that support it; 0: none.
    void LimitStatements(int seconds) { statementSeconds_ = seconds; }
    /// Executes a statement. `scrollable` if rows may be fetched more than once. Throws DatabaseError.
    OdbcStatement Run(const QString& sql, bool scrollable = false) const;
    /// Runs `work` under the watchdog and returns its result. All calls that wait for the server must be made in here.
    /// If `work` throws a DatabaseError after the watchdog has shut the connection down, an error with that reason
    /// (timeout, or end of the program) is thrown instead.
    template <typename Work>
    auto InTime(Work work) const {
        const OdbcWatchdog::ScopedCall call(*watch_);
        try {
            return work();
        } catch (const DatabaseError&) {
            ThrowReasonOfShutdown();
            throw;
        }
    }

    OdbcWatchdog& Watchdog() const { return *watch_; }

  private:
    void ThrowReasonOfShutdown() const;
    void Execute(OdbcStatement& statement, const QString& sql) const;

    int answerSeconds_;
    int statementSeconds_ = 0;
    std::unique_ptr<OdbcWatchdog> watch_;
    OdbcEnvironment environment_;
    OdbcHandle<SQL_HANDLE_DBC> handle_;
};

/// While it exists, a request to end the program cancels the statement. If the driver's SQLCancel has not returned in
/// time, the handles of the statement and later of the connection are never freed, since SQLCancel still uses them.
class RunningStatement {
  public:
    RunningStatement(const OdbcConnection& connection, OdbcStatement& statement);
    ~RunningStatement();
    RunningStatement(const RunningStatement&) = delete;
    RunningStatement& operator=(const RunningStatement&) = delete;

  private:
    OdbcStatement& statement_;
    OdbcWatchdog::Cancellable cancellable_;
};

/// The text as an argument for the driver manager, in UTF-16; valid as long as `text`.
inline SQLWCHAR* OdbcText(const QString& text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(reinterpret_cast<const char16_t*>(text.utf16())));
}

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
