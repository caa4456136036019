#pragma once

#include <QString>
#include <exception>

namespace platform {

/// A failure that rises from a procedure until somebody traps it. Whatever nobody traps is shown once, at the
/// event that started the work, as a plain message box with the description.
class RuntimeError : public std::exception {
  public:
    RuntimeError(long number, QString description);

    /// Number of the failure, as it stands in messages and history rows.
    long Number() const { return number_; }
    /// Text for people; may be Japanese or the engine's own words.
    const QString& Description() const { return description_; }
    /// "number description" in UTF-8, for logs and debuggers.
    const char* what() const noexcept override { return what_.constData(); }

  private:
    long number_;
    QString description_;
    QByteArray what_;
};

inline constexpr long kFileNotFound = 53;
inline constexpr long kInvalidUseOfNull = 94;
inline constexpr long kPropertyNotSupported = 438;

/// A database refused something. Only the wrappers around the connections and procedures with a trap of their
/// own catch it.
class DatabaseError : public RuntimeError {
  public:
    using RuntimeError::RuntimeError;
};

// Numbers of DatabaseError that do not come from an engine.
inline constexpr long kObjectClosed = 3704;
inline constexpr long kItemNotFound = 3265;
inline constexpr long kNoCurrentRecord = 3021;
inline constexpr long kNotAllowedHere = 3219;
inline constexpr long kNotUpdatable = 3251;
inline constexpr long kProviderNotFound = 3706;
inline constexpr long kEngineFailure = -2147467259;     // anything an engine says without a number of its own here
inline constexpr long kStatementFailure = -2147217900;  // the statement itself is wrong
inline constexpr long kIntegrityViolation = -2147217873;
inline constexpr long kLoginFailed = -2147217843;       // the server does not know the user or the password
inline constexpr long kPermissionDenied = -2147217911;  // a write to what is only to be read

}  // namespace platform
