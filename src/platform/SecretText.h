#pragma once

#include <QString>

namespace platform {

/// Overwrites the text's memory with NULs and clears the text. Memory shared with other QStrings is not overwritten.
void WipeText(QString& text) noexcept;

}  // namespace platform
