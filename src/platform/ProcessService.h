#pragma once

#include <QString>
#include <QStringList>

namespace platform {

/// Environment variable, set to "1" for a program started by StartHidden. The program then shows no window until a
/// client asks it to.
inline constexpr char kStartHiddenVariable[] = "MEIBO_START_HIDDEN";

/// Processes, including this one; tests replace it by a fake.
class ProcessService {
  public:
    virtual ~ProcessService() = default;

    /// Ends this process immediately, from any nested event loop, without running destructors. Only a test's fake
    /// returns, so it must be the caller's last statement.
    virtual void EndProcess(int exitCode) = 0;
    /// Starts a program of the suite with a normal window; it outlives this process. `path` must be absolute; "\" is
    /// converted to "/". If it ends in ".exe" and does not exist, the path without the suffix is used. `arguments` is
    /// passed as one argument, blanks included; as none if it is empty. Throws RuntimeError kFileNotFound if the
    /// program can't be started.
    virtual void StartProgram(const QString& path, const QString& arguments) = 0;
    /// Opens a document with the desktop's default program, which is started in `workingFolder`. False if that fails;
    /// shows no message.
    virtual bool OpenDocument(const QString& path, const QString& workingFolder) = 0;

    /// Starts a program with kStartHiddenVariable set, and returns its process id. The path is resolved like that of
    /// StartProgram; each argument is passed as one, blanks included. Throws RuntimeError kFileNotFound if the program
    /// can't be started.
    virtual quint32 StartHidden(const QString& path, const QStringList& arguments) = 0;

    // Handles of processes. A handle is a number that identifies one process, even after the process id has been
    // reused; a process id is not a handle.

    /// Opens a handle for a running process; 0 if there is no such process. Close it with CloseHandle. `access` and
    /// `inherit` have no effect on this platform.
    virtual quint32 OpenProcess(quint32 access, bool inherit, quint32 processId) = 0;
    /// Sets `code` to kStillActive for a running process, otherwise to the exit code or the number of the signal that
    /// killed it; to kUnknownExitCode for a process that neither StartHidden nor StartProgram has started. False, with
    /// `code` unchanged, for an invalid handle.
    virtual bool GetExitCodeProcess(quint32 handle, quint32& code) = 0;
    /// Kills the process and waits until it has ended; true also if it had ended before. `exitCode` is ignored on this
    /// platform. False for an invalid handle.
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
