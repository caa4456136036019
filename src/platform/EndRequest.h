#pragma once

#include <functional>

namespace platform {

/// Requests the end of the process. Async-signal-safe.
void RequestEnd() noexcept;

/// True from a termination request, or a click on the close box of a window that accepts input, until the program has
/// handled it. No events are processed while a statement runs, so waits for the database poll this and abort. While an
/// Ending exists it is false for the first five seconds, so that the last rows can be written, and true afterwards.
/// Callable from any thread while the main thread is blocked.
bool EndRequested();

/// Sets the handler for a termination signal.
void SetEndHandler(std::function<void()> handler);

/// Handles the request that EndRequested reports: runs the handler, or closes the window whose close box was clicked. A
/// modal window is not closed here; it gets its normal close event later. Usually does not return. No effect while the
/// program is already ending. Main thread only, after a wait has been aborted.
void CarryOutEndRequest();

/// Marks the program as ending for its lifetime; may be nested.
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
