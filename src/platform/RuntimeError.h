#pragma once

#include <QString>
#include <exception>

namespace platform {

/// Base class of all errors that a user may see. One that is not caught propagates to the event handler at the top,
/// which shows the description once in a message box.
class RuntimeError : public std::exception {
  public:
    RuntimeError(long number, QString description);

    /// Error number, as used in messages and history rows.
    long Number() const { return number_; }
    /// Description for the user: Japanese, or the text of the database engine.
    const QString& Description() const { return description_; }
    /// Text for a message box or the console: the description, with a Japanese explanation if it is not Japanese.
    virtual QString TextForPeople() const { return description_; }
    /// "number description" in UTF-8, for logs and debuggers.
    const char* what() const noexcept override { return what_.constData(); }

  private:
    long number_;
    QString description_;
    QByteArray what_;
};

/// RuntimeError::TextForPeople for any exception. Exceptions of the standard library get a Japanese explanation.
QString TextForPeople(const std::exception& error);

inline constexpr long kFileNotFound = 53;
inline constexpr long kInvalidUseOfNull = 94;
inline constexpr long kPropertyNotSupported = 438;
inline constexpr long kItemNotFound = 3265;

}  // namespace platform
