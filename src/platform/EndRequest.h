#pragma once

#include <functional>

namespace platform {

/// Requests the end of the process. Async-signal-safe.
void RequestEnd() noexcept;

/// True from a termination request, or a request of the EndSource, until the program has handled it. No events are
/// processed while a statement runs, so waits for the database poll this and abort. While an Ending exists it is false
/// for the first five seconds, so that the last rows can be written, and true afterwards. Callable from any thread
/// while the main thread is blocked.
bool EndRequested();

/// Sets the handler for a termination signal.
void SetEndHandler(std::function<void()> handler);

/// Requests other than signals, such as a click on the close box of a window.
class EndSource {
  public:
    virtual ~EndSource() = default;
    /// True while a request is pending. Called from any thread while the main thread is blocked.
    virtual bool Pending() const = 0;
    /// Handles the request, within an Ending. Main thread only.
    virtual void CarryOut() = 0;
};
/// Sets the one further source of requests; it must outlive its use. Null removes it.
void SetEndSource(EndSource* source);

/// Handles the request that EndRequested reports: runs the handler, or lets the source carry it out. Usually does not
/// return. No effect while the program is already ending. Main thread only, after a wait has been aborted.
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
