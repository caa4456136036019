#include "platform/EngineError.h"

#include <new>

namespace platform {
namespace {

QString WithWords(const QString& explanation, const QString& words) { return explanation + u'（' + words + u'）'; }

}  // namespace

QString TextForPeople(const std::exception& error) {
    if (const auto* engine = dynamic_cast<const EngineError*>(&error))
        return WithWords(engine->Explanation(), engine->Description());
    if (const auto* failure = dynamic_cast<const RuntimeError*>(&error)) return failure->Description();
    const bool memory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    return WithWords(
        memory ? QStringLiteral("メモリーが足りません。") : QStringLiteral("予期しない問題が発生しました。"),
        QString::fromLocal8Bit(error.what()));
}

}  // namespace platform
