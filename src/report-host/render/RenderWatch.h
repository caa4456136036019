#pragma once

#include <functional>

#include "report-host/template/ReportErrors.h"

/// Marks a rendering in progress for its lifetime; `stop` is polled and returns true to cancel it. May be nested; only
/// the innermost is polled. GUI thread only.
class RenderWatch {
  public:
    explicit RenderWatch(std::function<bool()> stop);
    ~RenderWatch();
    RenderWatch(const RenderWatch&) = delete;
    RenderWatch& operator=(const RenderWatch&) = delete;

    /// True while there is a RenderWatch. Only one page is rendered at a time: a window that needs another one must
    /// wait until it is false.
    static bool IsActive();

  private:
    friend void StopIfWanted();

    std::function<bool()> stop_;
    RenderWatch* outer_;
};

/// Cancellation point of rendering code; call it every few milliseconds. Throws ReportStopped if the process is to end
/// or the innermost RenderWatch cancels.
void StopIfWanted();
