#pragma once

#include <utility>

#include "platform/RuntimeError.h"

namespace database {

/// A database error. Caught only by the wrappers around connections and by procedures with an error handler.
class DatabaseError : public platform::RuntimeError {
  public:
    using RuntimeError::RuntimeError;
};

// Error numbers that do not come from an engine.
inline constexpr long kObjectClosed = 3704;
inline constexpr long kNoCurrentRecord = 3021;
inline constexpr long kNotAllowedHere = 3219;
inline constexpr long kNotUpdatable = 3251;
inline constexpr long kProviderNotFound = 3706;
inline constexpr long kEngineFailure = -2147467259;     // any engine error without a number here
inline constexpr long kStatementFailure = -2147217900;  // invalid statement
inline constexpr long kIntegrityViolation = -2147217873;
inline constexpr long kLoginFailed = -2147217843;       // wrong user or password
inline constexpr long kPermissionDenied = -2147217911;  // write to a read-only database, or missing privilege

/// An error of an engine or driver, whose messages are mostly English. The run history logs the original message, for
/// administrators; the user sees TextForPeople.
class EngineError : public DatabaseError {
  public:
    /// `words` is the original message (Description), `explanation` a Japanese sentence for the same error.
    EngineError(long number, QString words, QString explanation)
        : DatabaseError(number, std::move(words)), explanation_(std::move(explanation)) {}

    QString TextForPeople() const override { return explanation_ + u'（' + Description() + u'）'; }

  private:
    QString explanation_;
};

}  // namespace database
