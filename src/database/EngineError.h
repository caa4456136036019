#pragma once

#include <utility>

#include "database/DatabaseError.h"

namespace database {

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
