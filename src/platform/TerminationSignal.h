#pragma once

#include <functional>

namespace platform {

/// Delivers SIGTERM, SIGHUP and SIGINT as an event: `handler` runs in the event loop, also inside a modal window. A
/// running statement is aborted (see EndRequest.h). Needs the application object; call once.
void OnTerminationRequest(std::function<void()> handler);

/// Makes SIGINT and SIGTERM request the end of the process (RequestEnd), for programs without an event loop.
void RequestEndOnSignals();

/// Runs the handler now for a signal that has not been handled yet, for waits that process no events.
void ServeTerminationRequest();

/// True as soon as a signal has arrived, even before the handler has run; long jobs poll it and stop.
bool TerminationRequested();

}  // namespace platform
