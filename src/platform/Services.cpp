#include "platform/Services.h"

#include <QCoreApplication>

namespace platform {

ServiceSet& Services() {
    static ServiceSet services;
    return services;
}

void LetEventsThrough() { QCoreApplication::processEvents(); }

void EventGate::LetEventsThrough() {
    const auto now = std::chrono::steady_clock::now();
    if (now < next_) return;
    platform::LetEventsThrough();
    next_ = std::chrono::steady_clock::now() + std::chrono::milliseconds(1);
}

}  // namespace platform
