#pragma once

#include <QString>
#include <exception>

namespace platform {

/// Base class of all errors that a user may see. One that is not caught propagates to the event handler at the top,
/// which shows the description once in a message box.
class RuntimeError : public std::exception {
  public:
    RuntimeError(long number, QString description);

    /// Error number, as shown in messages and recorded in the run history.
    long Number() const { return number_; }
    /// Description for the user: Japanese, or the text of the database engine.
    const QString& Description() const { return description_; }
    /// Text for a message box or the console: the description; for an error of a database engine in brackets after a
    /// Japanese explanation.
    virtual QString TextForPeople() const { return description_; }
    /// "number description" in UTF-8, for logs and debuggers.
    const char* what() const noexcept override { return what_.constData(); }

  private:
    long number_;
    QString description_;
    QByteArray what_;
};

/// RuntimeError::TextForPeople for any exception. For exceptions of the standard library a Japanese explanation with
/// what() in brackets.
QString TextForPeople(const std::exception& error);

// Error numbers that several modules use.
inline constexpr long kFileNotFound = 53;           ///< a program file that cannot be started
inline constexpr long kInvalidUseOfNull = 94;       ///< the text of a Null
inline constexpr long kPropertyNotSupported = 438;  ///< a property that a control does not have
inline constexpr long kItemNotFound = 3265;         ///< an unknown column, table or item name

}  // namespace platform
