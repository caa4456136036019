#pragma once

#include <QApplication>
#include <memory>

#include "platform/ToolkitStart.h"

namespace platform {
struct ServiceSet;
}

/// The application object of a program with windows: Japanese texts and the suite's style. It does not end with the last
/// window, since every program of the suite ends by a step of its own.
class SuiteApplication : public QApplication {
  public:
    /// Keeps the whole command line in Services().system; the toolkit gets the program's name alone. Without a display
    /// it prints one sentence on standard error and ends the process with status 1.
    SuiteApplication(int argc, char** argv);

  private:
    SuiteApplication(int argc, char** argv, std::unique_ptr<ToolkitStart> start);
};

/// Message boxes, save dialog and wait dialog as windows.
void InstallWindowServices(platform::ServiceSet& services);
