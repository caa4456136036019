#pragma once

/// Makes a click on the close box of a window of this program a request to end (platform::EndRequested) as soon as the
/// X server reports it, even while no events are processed: a wait for the database polls it and aborts. A connection
/// to the X server that breaks ends the program as a termination signal does. X11 only; no effect on other platforms.
/// Needs the application object; call once.
void WatchCloseBoxes();
