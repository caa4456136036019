#pragma once

/// While an object exists, keyboard, mouse, wheel, touch and input method events and presses by a screen reader are
/// discarded, also those that are queued already. What began before is completed: a key or button that was down gets
/// its release. A key or button pressed meanwhile stays without effect until it is released, also after the object is
/// destroyed. Focus, close, paint and resize events are delivered. Objects may be nested. GUI thread only.
class InputBlock {
  public:
    InputBlock();
    ~InputBlock();
    InputBlock(const InputBlock&) = delete;
    InputBlock& operator=(const InputBlock&) = delete;

    /// True while an object exists.
    static bool Exists();
};

/// Processes pending events within an InputBlock, except timers and sockets.
void ProcessEventsWithoutInput();

/// Discards the input that has arrived while the program was busy and processed no events. On X11 the display server is
/// asked first, since it may have input that Qt has not read. A request to end is carried out at once. Other clicks on
/// close boxes take effect when the caller has returned to the event loop. To be called at the end of a job.
void DropPendingInput();
