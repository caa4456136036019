#include "platform/RuntimeError.h"

#include <new>

namespace platform {

RuntimeError::RuntimeError(long number, QString description)
    : number_(number),
      description_(std::move(description)),
      what_(QByteArray::number(static_cast<qlonglong>(number)) + ' ' + description_.toUtf8()) {}

QString TextForPeople(const std::exception& error) {
    if (const auto* failure = dynamic_cast<const RuntimeError*>(&error)) return failure->TextForPeople();
    const bool memory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    return (memory ? QStringLiteral("メモリーが足りません。") : QStringLiteral("予期しない問題が発生しました。")) +
           u'（' + QString::fromLocal8Bit(error.what()) + u'）';
}

}  // namespace platform
