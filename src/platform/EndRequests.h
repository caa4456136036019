#pragma once

namespace platform {

/// For waits that let no event through and may last for minutes: carries out what ends the program, which is a
/// termination request of the system and the close box of a window. Windows keep up with the window system; the user's
/// other input is dropped, and timers and sockets wait. Does nothing outside the thread of the application object.
void ServeEndRequests();

}  // namespace platform
