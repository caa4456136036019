#include "platform/SecretText.h"

#include <sodium.h>

namespace platform {

void WipeText(QString& text) noexcept {
    // If the data is shared, data() would detach and only the copy would be wiped.
    if (text.isDetached()) sodium_memzero(text.data(), static_cast<size_t>(text.size()) * sizeof(QChar));
    text.resize(0);
}

}  // namespace platform
