#pragma once

#include <QApplication>
#include <memory>

#include "platform/Services.h"

namespace platform {
struct ServiceSet;
}

/// The application object of a program with windows: Japanese texts and the suite's style. Closing the last window does
/// not quit; every program of the suite quits explicitly.
class SuiteApplication : public QApplication {
  public:
    /// Keeps the whole command line in Services().system; Qt gets only the program's name. Then sets up everything
    /// below and WatchCloseBoxes. If Qt cannot start, e.g. without a display, it prints the reason on standard error
    /// and exits with status 1 (ToolkitStart). Windows are scaled to suit the screen (ScreenScale) and belong to the
    /// desktop entry of the inquiry.
    SuiteApplication(int argc, char** argv);

  private:
    struct Preparation;
    SuiteApplication(int argc, char** argv, std::unique_ptr<Preparation> preparation);
};

/// Sets services.dialogs and services.waitDialog to implementations with windows.
void InstallWindowServices(platform::ServiceSet& services);

/// Sets the same style, palette and default font on every desktop, whose dark or high-contrast palette is not used.
/// Call it before any window is created.
void ApplySuiteStyle(QApplication& application);

/// Sets Japanese number and date formats and translates Qt's own dialogs, independent of the user's locale. Without
/// Qt's translation files the dialogs stay English.
void InstallTranslator(QCoreApplication& application);

/// Message boxes and save dialog over the active window; see platform::Dialogs. A carriage return in a message is shown
/// as a line break.
class WidgetDialogs : public platform::Dialogs {
  public:
    using Dialogs::Confirm;
    using Dialogs::ShowMessage;
    void ShowMessage(const QString& text, const QString& title) override;
    bool Confirm(const QString& text, const QString& title) override;
    std::optional<QString> ShowSave(const platform::SaveQuestion& question) override;
};
