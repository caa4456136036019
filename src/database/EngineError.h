#pragma once

#include <utility>

#include "database/DatabaseError.h"

namespace database {

/// A failure in the words of a database engine or a driver, which are mostly English. The run history keeps these
/// words, which an administrator can look up; people are shown TextForPeople.
class EngineError : public DatabaseError {
  public:
    /// `words` is the Description, `explanation` one Japanese sentence for the same failure.
    EngineError(long number, QString words, QString explanation)
        : DatabaseError(number, std::move(words)), explanation_(std::move(explanation)) {}

    QString TextForPeople() const override { return explanation_ + u'（' + Description() + u'）'; }

  private:
    QString explanation_;
};

}  // namespace database
