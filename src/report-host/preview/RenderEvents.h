#pragma once

/// For renders that may take minutes: acts on what ends the program or the window, which is a termination signal and
/// the close box. Windows keep up with the window system; other input is dropped, and timers and sockets wait. Does
/// nothing outside the thread of the application object.
void ProcessRenderEvents();
