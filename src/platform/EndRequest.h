#pragma once

#include <functional>

namespace platform {

/// Asks the process to end. Safe inside a signal handler.
void RequestEnd() noexcept;

/// True from the request to end the process, or from a press on the close box of a window that takes input, until the
/// program has acted on it. While a statement runs no event is processed, so what waits for an engine asks here and
/// breaks off. While the program ends it is False for the first five seconds, since the last rows have to be written,
/// and True afterwards. From any thread, where the main thread waits.
bool EndRequested();

/// What the program does when a signal asks it to end.
void SetEndHandler(std::function<void()> handler);

/// Acts on the request that EndRequested reports: runs the handler, or closes the window whose close box was pressed
/// unless it is modal; such a window gets its ordinary event later. Mostly it does not return. Does nothing while the
/// program is ending already. For the main thread, where a wait has been broken off.
void CarryOutEndRequest();

/// While it lives the program is ending.
class Ending {
  public:
    Ending();
    ~Ending();
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;

  private:
    bool outermost_;
};

}  // namespace platform
