#pragma once

#include <QString>

namespace platform {

/// Overwrites a text that nobody else shares with NULs, so that its content does not stay behind in memory, and
/// empties it. Copies that other texts hold are theirs to wipe.
void WipeText(QString& text) noexcept;

}  // namespace platform
