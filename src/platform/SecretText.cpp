#include "platform/SecretText.h"

#include <sodium.h>

namespace platform {

void WipeText(QString& text) noexcept {
    // A shared text is somebody else's as well, and writing to it would only wipe a copy made for the purpose.
    if (text.isDetached()) sodium_memzero(text.data(), static_cast<size_t>(text.size()) * sizeof(QChar));
    text.resize(0);
}

}  // namespace platform
