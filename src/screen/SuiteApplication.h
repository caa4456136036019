#pragma once

#include <QApplication>
#include <memory>

#include "platform/Services.h"
#include "platform/ToolkitStart.h"

namespace platform {
struct ServiceSet;
}

/// The application object of a program with windows: Japanese texts and the suite's style. Closing the last window does
/// not quit; every program of the suite quits explicitly.
class SuiteApplication : public QApplication {
  public:
    /// Keeps the whole command line in Services().system; the toolkit gets the program's name alone. If the
    /// toolkit can't start, prints the reason on standard error (platform/ToolkitStart.h) and ends the process with
    /// status 1.
    SuiteApplication(int argc, char** argv);

  private:
    SuiteApplication(int argc, char** argv, std::unique_ptr<ToolkitStart> start);
};

/// Sets services.dialogs and services.waitDialog to implementations with windows.
void InstallWindowServices(platform::ServiceSet& services);

/// Sets the same style, palette and default font on every desktop, whose dark or high-contrast palette is not used.
/// Call it before any window is created.
void ApplySuiteStyle(QApplication& application);

/// Japanese number and date formats and Qt's own dialogs in Japanese, independent of the user's locale.
void InstallTranslator(QCoreApplication& application);

/// Application-modal message boxes and save dialog over the active window.
class WidgetDialogs : public platform::Dialogs {
  public:
    using Dialogs::Confirm;
    using Dialogs::ShowMessage;
    void ShowMessage(const QString& text, const QString& title) override;
    bool Confirm(const QString& text, const QString& title) override;
    std::optional<QString> ShowSave(const platform::SaveQuestion& question) override;
};
