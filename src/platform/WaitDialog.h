#pragma once

namespace platform {

/// The notice that a long job is running, for modules without windows. This base class shows nothing.
class WaitDialog {
  public:
    virtual ~WaitDialog() = default;
    /// Shows the notice and processes events once, so that it is painted.
    virtual void Show() {}
    virtual void Unload() {}
};

}  // namespace platform
