#pragma once

#include <QString>
#include <QStringList>

namespace platform {

/// Environment variable, set to "1" for programs that are started hidden: they show no window until asked to.
inline constexpr char kStartHiddenVariable[] = "MEIBO_START_HIDDEN";

/// Processes, including this one; tests replace it by a fake.
class ProcessService {
  public:
    virtual ~ProcessService() = default;

    /// Terminates immediately, from any nested event loop. Only a test's fake returns, so callers must have nothing
    /// left to do.
    virtual void EndProcess(int exitCode) = 0;
    /// Starts a program of the suite with a normal window; it outlives this process. If `path` ends in ".exe" and does
    /// not exist, the path without the suffix is used. `arguments` is passed as one argument, blanks included. Throws
    /// RuntimeError kFileNotFound if it can't be started.
    virtual void StartProgram(const QString& path, const QString& arguments) = 0;
    /// Opens a document with the desktop's default program. False if there is none; shows no message.
    virtual bool OpenDocument(const QString& path, const QString& workingFolder) = 0;

    /// Starts a program that shows no window until it is asked to, and returns its process id. The path is resolved
    /// like that of StartProgram; each argument is passed as one, blanks included. Throws RuntimeError kFileNotFound if
    /// it can't be started.
    virtual quint32 StartHidden(const QString& path, const QStringList& arguments) = 0;
    /// Opens a handle for a running process; 0 if there is no such process. Close it with CloseHandle. `access` and
    /// `inherit` have no effect on this platform.
    virtual quint32 OpenProcess(quint32 access, bool inherit, quint32 processId) = 0;
    /// Sets `code` to kStillActive, to the exit code, or to kUnknownExitCode for a process that StartHidden and
    /// StartProgram have not started. False, with `code` unchanged, for an invalid handle; a process
    /// id is not a handle.
    virtual bool GetExitCodeProcess(quint32 handle, quint32& code) = 0;
    /// Kills the process and waits until it has ended. `exitCode` is ignored on this platform. False for an invalid
    /// handle.
    virtual bool TerminateProcess(quint32 handle, quint32 exitCode) = 0;
    /// False for an invalid handle.
    virtual bool CloseHandle(quint32 handle) = 0;

    static constexpr quint32 kStillActive = 259;
    static constexpr quint32 kUnknownExitCode = 0xFFFFFFFF;
};

class LocalProcessService : public ProcessService {
  public:
    void EndProcess(int exitCode) override;
    void StartProgram(const QString& path, const QString& arguments) override;
    bool OpenDocument(const QString& path, const QString& workingFolder) override;
    quint32 StartHidden(const QString& path, const QStringList& arguments) override;
    quint32 OpenProcess(quint32 access, bool inherit, quint32 processId) override;
    bool GetExitCodeProcess(quint32 handle, quint32& code) override;
    bool TerminateProcess(quint32 handle, quint32 exitCode) override;
    bool CloseHandle(quint32 handle) override;
};

}  // namespace platform
