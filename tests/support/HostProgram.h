#pragma once

#include <QProcess>
#include <QString>
#include <memory>

#include "platform/ReportHostLink.h"

/// A report host of the test's own: a real process on a forms file, started as the suite starts it.
class HostProgram {
  public:
    /// Returns as soon as the process is there; whether it can be bound is the test's business. With a display its
    /// windows stand there.
    explicit HostProgram(const QString& formsFile, const QString& display = {});
    ~HostProgram();
    HostProgram(const HostProgram&) = delete;
    HostProgram& operator=(const HostProgram&) = delete;

    /// Binds it as soon as it listens. A host whose last caller has gone leaves, so this is also the first one.
    std::unique_ptr<platform::ReportHost> Bind() const;
    bool Runs() const { return process_.state() != QProcess::NotRunning; }
    /// True when it ends by itself, with what it returns left in ExitCode.
    bool Ends(int patience = 20000);
    int ExitCode() const { return process_.exitCode(); }
    void Kill();
    /// From any thread, without waiting.
    void KillNow() const;
    void Freeze() const;
    void Terminate() const;
    QString ErrorText() { return QString::fromUtf8(process_.readAllStandardError()); }

  private:
    QString formsFile_;
    QProcess process_;
};

/// Ids of all running processes whose program file is this one.
QList<qint64> ProcessesOf(const QString& program);
