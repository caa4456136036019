#pragma once

#include <functional>

namespace platform {

/// Lets a request of the system to end the process arrive as an event, whether it is asked to (SIGTERM), its session
/// ends (SIGHUP) or somebody breaks it off at a terminal (SIGINT): the handler runs where events are let through, also
/// inside a modal window. A statement that runs is broken off (see EndRequest.h), also by the close box. Needs the
/// application object; to be called once.
void OnTerminationRequest(std::function<void()> handler);

/// Runs the handler now where a request has come that it has not run for: for waits that let no event through.
void ServeTerminationRequest();

/// True as soon as a request has come, before the handler has run: for long work that ends early then.
bool TerminationRequested();

}  // namespace platform
