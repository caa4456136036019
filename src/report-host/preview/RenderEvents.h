#pragma once

/// Handles termination signals and the close box during a long rendering. Windows are repainted; other input is
/// dropped, timers and sockets are deferred. No effect outside the GUI thread.
void ProcessRenderEvents();
