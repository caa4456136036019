#pragma once

#include <utility>

#include "platform/RuntimeError.h"

namespace database {

/// An error of a connection, a recordset or a statement. Number() is one of the numbers below, whatever the engine is,
/// kNoSuchTable (LinkedTables.h) or platform::kItemNotFound.
class DatabaseError : public platform::RuntimeError {
  public:
    using RuntimeError::RuntimeError;
};

// Wrong use of an object.
inline constexpr long kObjectClosed = 3704;      // the connection or recordset is not open
inline constexpr long kNoCurrentRecord = 3021;   // at BOF or EOF, or no record is being added
inline constexpr long kNotAllowedHere = 3219;    // closed while a record is being added
inline constexpr long kNotUpdatable = 3251;      // records cannot be added to this result
inline constexpr long kProviderNotFound = 3706;  // unknown provider, or its driver is not installed

// Errors that an engine or a driver reports.
inline constexpr long kEngineFailure = -2147467259;       // any error without a number below
inline constexpr long kStatementFailure = -2147217900;    // invalid statement, or one that cannot be translated
inline constexpr long kIntegrityViolation = -2147217873;  // constraint violated, such as a duplicate key
inline constexpr long kLoginFailed = -2147217843;         // wrong user or password
inline constexpr long kPermissionDenied = -2147217911;    // write to a read-only database, or missing privilege

/// An error with the message of an engine or driver, which is mostly English. The run history contains the original
/// message (Description), for administrators; the user sees TextForPeople.
class EngineError : public DatabaseError {
  public:
    /// `words` is the original message, `explanation` a Japanese sentence for the same error.
    EngineError(long number, QString words, QString explanation)
        : DatabaseError(number, std::move(words)), explanation_(std::move(explanation)) {}

    QString TextForPeople() const override { return explanation_ + u'（' + Description() + u'）'; }

  private:
    QString explanation_;
};

}  // namespace database
