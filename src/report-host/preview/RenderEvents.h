#pragma once

/// Processes pending events during a long rendering: termination signals and close boxes are handled, windows
/// repainted, other input is dropped, timers and sockets are deferred. No effect outside the GUI thread.
void ProcessRenderEvents();
