#pragma once

namespace platform {

/// Notice that a long job is running, for modules without widgets. The base class shows nothing.
class WaitDialog {
  public:
    virtual ~WaitDialog() = default;
    /// Shows the notice and processes events once, so that it is painted.
    virtual void Show() {}
    /// Closes the notice.
    virtual void Unload() {}
};

}  // namespace platform
