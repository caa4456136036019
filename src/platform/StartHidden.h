#pragma once

namespace platform {

/// Set to "1" for programs that are started hidden: they put up no window before they are asked to.
inline constexpr char kStartHiddenVariable[] = "MEIBO_START_HIDDEN";

}  // namespace platform
