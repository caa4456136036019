#include "platform/Services.h"

#include <QCoreApplication>

namespace platform {

ServiceSet& Services() {
    static ServiceSet services;
    return services;
}

void LetEventsThrough() { QCoreApplication::processEvents(); }

}  // namespace platform
