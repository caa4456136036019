#pragma once

#include "platform/RuntimeError.h"

namespace database {

/// An error of a database. Only the wrappers around the connections and procedures with an error handler of their own
/// catch it.
class DatabaseError : public platform::RuntimeError {
  public:
    using RuntimeError::RuntimeError;
};

// Numbers of errors that do not come from an engine.
inline constexpr long kObjectClosed = 3704;
inline constexpr long kNoCurrentRecord = 3021;
inline constexpr long kNotAllowedHere = 3219;
inline constexpr long kNotUpdatable = 3251;
inline constexpr long kProviderNotFound = 3706;
inline constexpr long kEngineFailure = -2147467259;     // any engine error without a number of its own here
inline constexpr long kStatementFailure = -2147217900;  // the statement itself is wrong
inline constexpr long kIntegrityViolation = -2147217873;
inline constexpr long kLoginFailed = -2147217843;       // the server refuses the user or the password
inline constexpr long kPermissionDenied = -2147217911;  // a write to a read-only database

}  // namespace database
