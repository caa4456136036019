#pragma once

namespace platform {

/// Environment variable, set to "1" for programs that are started hidden: they show no window until asked to.
inline constexpr char kStartHiddenVariable[] = "MEIBO_START_HIDDEN";

}  // namespace platform
