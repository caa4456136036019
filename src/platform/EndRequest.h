#pragma once

#include <functional>

namespace platform {

// Requests to end the program while its main thread is blocked, usually in a database call: no events are processed
// there, so a termination signal or a click on the close box would have no effect until the call returns. Blocking
// calls therefore poll EndRequested, abort, and call CarryOutEndRequest.

/// Makes EndRequested true until CarryOutEndRequest has run the handler. Async-signal-safe.
void RequestEnd() noexcept;

/// True if RequestEnd was called or the EndSource has a request, and the request has not been handled. While an Ending
/// exists, it ignores requests: it is false for the first five seconds, so that the last rows can be written, and true
/// afterwards, so that the end is not blocked for longer. Callable from any thread.
bool EndRequested();

/// Sets the procedure that CarryOutEndRequest runs after RequestEnd. Without one the request is only reset.
void SetEndHandler(std::function<void()> handler);

/// A second source of requests, such as clicks on the close box of a window.
class EndSource {
  public:
    virtual ~EndSource() = default;
    /// True while a request is pending. Called from any thread.
    virtual bool Pending() const = 0;
    /// Handles the request; no effect without one. The implementation creates the Ending. Main thread only.
    virtual void CarryOut() = 0;
};
/// Sets the source, which must outlive its use. Null removes it.
void SetEndSource(EndSource* source);

/// Handles a request: runs the handler after RequestEnd, otherwise calls CarryOut of the source. Usually does not
/// return. No effect while an Ending exists. Main thread only, after the blocking call has been aborted.
void CarryOutEndRequest();

/// While an object exists, the program is ending and handles no further request. Objects may be nested; the five
/// seconds of EndRequested begin with the outermost.
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
