#pragma once

#include <sql.h>
#include <sqlext.h>

#include <QString>
#include <QStringView>
#include <memory>
#include <utility>

#include "database/EngineError.h"
#include "database/odbc/OdbcWatchdog.h"

namespace database {

/// What the driver manager and the driver say about the last call on a handle: their words without the names of the
/// components in front, all records apart by a blank, and the number that the suite knows the failure by.
EngineError OdbcFailure(SQLSMALLINT type, SQLHANDLE handle);

/// Number of a DatabaseError for an SQLSTATE and the engine's own code.
long NumberOfOdbcState(QStringView state, long code);

/// A handle of the driver manager, freed at its end.
template <SQLSMALLINT Type>
class OdbcHandle {
  public:
    OdbcHandle() = default;
    /// Throws DatabaseError with what the parent says.
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
    /// Throws what the handle has to say where a call on it did not succeed.
    void Check(SQLRETURN result) const {
        if (!SQL_SUCCEEDED(result)) throw OdbcFailure(Type, handle_);
    }

  private:
    SQLHANDLE handle_ = nullptr;
};

using OdbcEnvironment = OdbcHandle<SQL_HANDLE_ENV>;
using OdbcStatement = OdbcHandle<SQL_HANDLE_STMT>;

/// A connection to a server; ended at its end, also when the server is gone or says nothing any more.
class OdbcConnection {
  public:
    /// `text` is the driver manager's connection string, `loginSeconds` how long to wait for the connection, and
    /// `answerSeconds` for any answer behind that: then it is ended, and everything on it fails. 0 waits for ever.
    /// Throws DatabaseError.
    OdbcConnection(const QString& text, int loginSeconds, int answerSeconds);
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;

    SQLHANDLE Get() const { return handle_.Get(); }
    /// What the driver says of the engine, as SQL_DBMS_NAME.
    QString Information(SQLUSMALLINT which) const;
    /// Has the driver end every statement that runs longer, if it can.
    void LimitStatements(int seconds) { statementSeconds_ = seconds; }
    /// A new statement, with the text run; `scrollable` where its rows may be fetched more than once. Throws
    /// DatabaseError.
    OdbcStatement Run(const QString& sql, bool scrollable = false) const;
    /// Gives what `work` gives. All that waits for the server belongs in here: where the answer does not come in time,
    /// the DatabaseError says so.
    template <typename Work>
    auto InTime(Work work) const {
        const OdbcWatchdog::ScopedCall turn(*watch_);
        try {
            return work();
        } catch (const DatabaseError&) {
            if (watch_->Ended()) RaiseNoAnswer();
            throw;
        }
    }

    /// While the object lives, a request to end the program cancels the statement.
    OdbcWatchdog::Cancellable Cancellable(const OdbcStatement& statement) const {
        return {*watch_, [](void* handle) { SQLCancel(handle); }, statement.Get()};
    }

  private:
    [[noreturn]] void RaiseNoAnswer() const;

    int answerSeconds_;
    int statementSeconds_ = 0;
    std::unique_ptr<OdbcWatchdog> watch_;
    OdbcEnvironment environment_;
    OdbcHandle<SQL_HANDLE_DBC> handle_;
};

/// The driver manager's type of a text; both are UTF-16.
inline SQLWCHAR* OdbcText(const QString& text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(reinterpret_cast<const char16_t*>(text.utf16())));
}

}  // namespace database
