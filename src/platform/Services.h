#pragma once

#include <QDateTime>
#include <QString>
#include <QThread>
#include <chrono>
#include <memory>
#include <optional>

#include "platform/FileSystem.h"
#include "platform/ProcessService.h"
#include "platform/Registry.h"
#include "platform/ReportHostLink.h"
#include "platform/SealedPins.h"
#include "platform/SystemInformation.h"
#include "platform/registry/FileRegistry.h"

namespace platform {

/// Time of day, monotonic time and pauses; tests replace it by a fake.
class Clock {
  public:
    virtual ~Clock() = default;
    /// Local time.
    virtual QDateTime Now() const = 0;
    /// Monotonic time since an unspecified start. Not affected by changes of the system clock.
    virtual std::chrono::milliseconds Elapsed() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    }
    /// Blocks the thread without processing events.
    virtual void Sleep(int milliseconds) const = 0;
};

class SystemClock : public Clock {
  public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    void Sleep(int milliseconds) const override { QThread::msleep(static_cast<unsigned long>(milliseconds)); }
};

/// Initial state of Dialogs::ShowSave.
struct SaveQuestion {
    QString Filter;       ///< description and pattern of each file type alternately, separated by "|"
    int FilterIndex = 1;  ///< file type selected initially, counted from 1
    QString FileName;     ///< proposed file name, with its folder
};

/// Message boxes and file dialogs. All modules use this interface, so that tests can queue the answers.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// Modal box with an OK button; returns when it is closed. With an empty title the box has no caption.
    virtual void ShowMessage(const QString& text, const QString& title) = 0;
    /// Modal box with はい and いいえ, which the keys Y and N press, too. True for はい.
    virtual bool Confirm(const QString& text, const QString& title) = 0;
    /// Modal save dialog; nullopt on cancel. The path is returned as typed: no suffix is appended, and no confirmation
    /// is asked for an existing file. A proposed name without a folder is resolved in the user's documents folder. The
    /// dialog may change the working directory.
    virtual std::optional<QString> ShowSave(const SaveQuestion& question) = 0;

    // The same with `defaultTitle`, which a program sets to its id at its start.
    void ShowMessage(const QString& text) { ShowMessage(text, defaultTitle); }
    bool Confirm(const QString& text) { return Confirm(text, defaultTitle); }

    QString defaultTitle;

    enum class Answer { Yes, No };
    /// Answer of Confirm to the Enter key. A program whose questions are about losing data sets it to No at its start.
    Answer defaultAnswer = Answer::Yes;
};

/// Notice that a long job is running, for modules without widgets. The base class shows nothing.
class WaitDialog {
  public:
    virtual ~WaitDialog() = default;
    /// Shows the notice and processes events once, so that it is painted.
    virtual void Show() {}
    /// Closes the notice.
    virtual void Unload() {}
};

/// Services of the operating system and the desktop. Programs with windows set `system`, `dialogs` and `waitDialog` in
/// main(), and `pins` once the installation is known. Tests install their fakes.
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

/// Processes all pending events; no effect without an application object.
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
