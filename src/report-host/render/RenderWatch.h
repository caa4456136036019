#pragma once

#include <functional>

#include "report-host/layout/PreparedReport.h"

/// A report that was to end before its last page.
class ReportStopped : public ReportFailure {
  public:
    ReportStopped();
};

/// While it lives, a render is running, and `stop` is asked whether it is to end. The watch made last counts.
class RenderWatch {
  public:
    explicit RenderWatch(std::function<bool()> stop);
    ~RenderWatch();
    RenderWatch(const RenderWatch&) = delete;
    RenderWatch& operator=(const RenderWatch&) = delete;

    /// Reports are painted one at a time: a window that needs a page meanwhile has to wait.
    static bool IsActive();

  private:
    friend void StopIfWanted();

    std::function<bool()> stop_;
    RenderWatch* outer_;
};

/// For everything that makes pages, between steps of some milliseconds. Throws ReportStopped when the system asks the
/// process to end, or the watch wants the render to.
void StopIfWanted();
