#pragma once

#include <QString>
#include <exception>

namespace platform {

/// Base of all errors that a user may see. One that is not caught on the way propagates to the event that started the
/// work and is shown there once, as a plain message box with the description.
class RuntimeError : public std::exception {
  public:
    RuntimeError(long number, QString description);

    /// Number of the failure, as it stands in messages and history rows.
    long Number() const { return number_; }
    /// Text for people; may be Japanese or the engine's own words.
    const QString& Description() const { return description_; }
    /// What a message box or the tool shows: the description, with a Japanese explanation if it is in other words.
    virtual QString TextForPeople() const { return description_; }
    /// "number description" in UTF-8, for logs and debuggers.
    const char* what() const noexcept override { return what_.constData(); }

  private:
    long number_;
    QString description_;
    QByteArray what_;
};

/// RuntimeError::TextForPeople of any exception. One of the run-time library gets a Japanese explanation, too.
QString TextForPeople(const std::exception& error);

inline constexpr long kFileNotFound = 53;
inline constexpr long kInvalidUseOfNull = 94;
inline constexpr long kPropertyNotSupported = 438;
inline constexpr long kItemNotFound = 3265;

}  // namespace platform
