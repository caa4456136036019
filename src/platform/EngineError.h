#pragma once

#include <exception>

#include "platform/RuntimeError.h"

namespace platform {

/// A failure in the words of a database engine or a driver, which are mostly English. The run history keeps these
/// words, which an administrator can look up; people are shown TextForPeople.
class EngineError : public DatabaseError {
  public:
    /// `words` is the Description, `explanation` one Japanese sentence for the same failure.
    EngineError(long number, QString words, QString explanation)
        : DatabaseError(number, std::move(words)), explanation_(std::move(explanation)) {}

    const QString& Explanation() const { return explanation_; }

  private:
    QString explanation_;
};

/// What a message box or the tool shows of a failure: Japanese, and after it in brackets the words of an engine or of
/// the run-time library. Failures of the suite are worded in Japanese already and come as they are.
QString TextForPeople(const std::exception& error);

}  // namespace platform
