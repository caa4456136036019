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

/// Services of the operating system and the desktop. Programs with windows set `system`, `dialogs` and `waitDialog` in
/// main(); tests install their fakes.
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

/// The services of this process.
ServiceSet& Services();

/// Processes all pending events.
void ProcessEvents();

/// Processes events from within a loop, on the first call and then at most once a millisecond: polling the window
/// system in every iteration costs as much as the iteration.
class EventPump {
  public:
    void ProcessEvents();

  private:
    std::chrono::steady_clock::time_point next_;
};

}  // namespace platform
