#pragma once

#include <QProcess>
#include <QString>
#include <memory>

#include "platform/ReportHostLink.h"

/// A real report host process on a template file, started as the suite starts it.
class HostProgram {
  public:
    /// Returns as soon as the process exists; it may not be listening yet. Its windows are shown on the display, if
    /// given.
    explicit HostProgram(const QString& templateFile, const QString& display = {});
    ~HostProgram();
    HostProgram(const HostProgram&) = delete;
    HostProgram& operator=(const HostProgram&) = delete;

    /// Connects as soon as it listens. A host quits when its last client disconnects.
    std::unique_ptr<platform::ReportHost> Bind() const;
    bool Runs() const { return process_.state() != QProcess::NotRunning; }
    /// Waits for its regular exit; ExitCode contains the status. False after a timeout.
    bool Ends(int timeout = 20000);
    int ExitCode() const { return process_.exitCode(); }
    void Kill();
    /// Thread-safe, does not wait.
    void KillNow() const;
    void Freeze() const;
    void Terminate() const;
    QString ErrorText() { return QString::fromUtf8(process_.readAllStandardError()); }

  private:
    QString templateFile_;
    QProcess process_;
};

/// Ids of all running processes with this program file.
QList<qint64> ProcessesOf(const QString& program);
