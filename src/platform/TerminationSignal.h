#pragma once

#include <functional>

namespace platform {

// Termination signals. A program calls one of the first two procedures at its start.

/// For programs with an event loop. On SIGTERM, SIGHUP or SIGINT `handler` runs in the event loop, also inside a modal
/// window; a database call that blocks the main thread is aborted before (see EndRequest.h). Needs the application
/// object; to be called once.
void OnTerminationRequest(std::function<void()> handler);

/// For programs without an event loop: SIGINT and SIGTERM call RequestEnd.
void RequestEndOnSignals();

// For programs that have called OnTerminationRequest:

/// Runs the handler if a signal has arrived that has not been handled yet. For loops that process no events.
void ServeTerminationRequest();

/// True from the first signal on, even before the handler has run. Long jobs poll it and stop.
bool TerminationRequested();

}  // namespace platform
