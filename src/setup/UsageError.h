#pragma once

#include <QString>

#include "platform/RuntimeError.h"

namespace setup {

/// A request that cannot or must not be carried out: wrong words, options, files or folders. Nothing was changed.
class UsageError : public platform::RuntimeError {
  public:
    explicit UsageError(const QString& description) : RuntimeError(2, description) {}
};

}  // namespace setup
