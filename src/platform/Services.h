#pragma once

#include <chrono>
#include <memory>

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/PinCipherObject.h"
#include "platform/ProcessService.h"
#include "platform/Registry.h"
#include "platform/ReportHostLink.h"
#include "platform/SystemInformation.h"
#include "platform/WaitDialog.h"
#include "platform/registry/FileRegistry.h"

namespace platform {

/// The services of the operating system and the desktop that a program uses. A program with windows replaces `system`,
/// `dialogs` and `waitDialog` in its main(), a test puts its fakes there.
struct ServiceSet {
    std::unique_ptr<Clock> clock = std::make_unique<SystemClock>();
    std::unique_ptr<SystemInformation> system;
    std::unique_ptr<FileSystem> files = std::make_unique<LocalFileSystem>();
    std::unique_ptr<Dialogs> dialogs;  ///< null in a program without windows
    std::unique_ptr<WaitDialog> waitDialog = std::make_unique<WaitDialog>();
    std::unique_ptr<ProcessService> processes = std::make_unique<LocalProcessService>();
    std::unique_ptr<Registry> registry = std::make_unique<FileRegistry>();
    std::unique_ptr<ReportHostLink> reportHosts = std::make_unique<LocalReportHostLink>();
    std::unique_ptr<PinCipherObject> pins = std::make_unique<UnsealedPins>();
};

ServiceSet& Services();

/// Lets pending events through and returns when none is left.
void ProcessEvents();

/// For loops that let events through at every turn: asking the window system costs as much as the turn itself, so it
/// is asked at the first turn and then once a millisecond, which nobody can tell apart.
class EventPump {
  public:
    void ProcessEvents();

  private:
    std::chrono::steady_clock::time_point next_;
};

}  // namespace platform
