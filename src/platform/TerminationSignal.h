#pragma once

#include <functional>

namespace platform {

/// Lets a request of the system to end the process arrive as an event, whether it is asked to (SIGTERM), its session
/// ends (SIGHUP) or somebody breaks it off at a terminal (SIGINT): the handler runs where events are let through, also
/// inside a modal window. A statement that runs is broken off (see EndRequest.h), also by the close box. Needs the
/// application object; to be called once.
void OnTerminationRequest(std::function<void()> handler);

}  // namespace platform
