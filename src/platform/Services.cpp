#include "platform/Services.h"

#include <QCoreApplication>

namespace platform {

ServiceSet& Services() {
    static ServiceSet services;
    return services;
}

void ProcessEvents() { QCoreApplication::processEvents(); }

void EventPump::ProcessEvents() {
    const auto now = std::chrono::steady_clock::now();
    if (now < next_) return;
    platform::ProcessEvents();
    next_ = std::chrono::steady_clock::now() + std::chrono::milliseconds(1);
}

}  // namespace platform
