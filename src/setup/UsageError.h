#pragma once

#include <QString>

#include "platform/RuntimeError.h"

namespace setup {

/// Invalid request: wrong command, option, file or folder. Thrown before anything is changed; exit status 2.
class UsageError : public platform::RuntimeError {
  public:
    explicit UsageError(const QString& description) : RuntimeError(2, description) {}
};

}  // namespace setup
