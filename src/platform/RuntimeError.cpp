#include "platform/RuntimeError.h"

namespace platform {

RuntimeError::RuntimeError(long number, QString description)
    : number_(number),
      description_(std::move(description)),
      what_(QByteArray::number(static_cast<qlonglong>(number)) + ' ' + description_.toUtf8()) {}

}  // namespace platform
