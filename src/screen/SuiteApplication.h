#pragma once

#include <QApplication>
#include <memory>

#include "screen/ToolkitStart.h"

/// The application object of a program with forms: Japanese throughout, in the suite's look, and going on without a
/// window, as every program of the suite ends by a step of its own.
class SuiteApplication : public QApplication {
  public:
    /// Keeps the whole command line in Services().system; the toolkit gets the program's name alone. Without a display
    /// it prints one sentence on standard error and ends the process with status 1.
    SuiteApplication(int argc, char** argv);

  private:
    SuiteApplication(int argc, char** argv, std::unique_ptr<ToolkitStart> start);
};
