#pragma once

#include <QString>
#include <QStringList>

#include "platform/StartHidden.h"

namespace platform {

/// Processes, this one included.
class ProcessService {
  public:
    virtual ~ProcessService() = default;

    /// Leaves the process at once, out of whatever loop or modal window it stands in. Only a test's stand-in
    /// returns, so callers must have nothing left to do.
    virtual void EndProcess(int exitCode) = 0;
    /// Starts a program of the suite with a normal window; it outlives this one. A path ending in ".exe" that is not
    /// there stands for the same path without. `arguments` is one text, the tail of the command line with its blanks.
    /// Throws RuntimeError kFileNotFound when it cannot be started.
    virtual void StartProgram(const QString& path, const QString& arguments) = 0;
    /// Opens a document with the program that the desktop has for it. False when there is none; never a message.
    virtual bool OpenDocument(const QString& path, const QString& workingFolder) = 0;

    /// Starts a program that puts up no window before it is asked to, and gives its process id. The path is taken like
    /// that of StartProgram, with either separator; each argument arrives as one, blanks included. Throws RuntimeError
    /// kFileNotFound when it cannot be started.
    virtual quint32 StartHidden(const QString& path, const QStringList& arguments) = 0;
    /// A handle on a running process; 0 when there is none of that id. `access` is what the handle is good for on
    /// systems that ask.
    virtual quint32 OpenProcess(quint32 access, bool inherit, quint32 processId) = 0;
    /// kStillActive, or what the ended process left. False, and `code` untouched, for anything that is no handle: a
    /// process id is none.
    virtual bool GetExitCodeProcess(quint32 handle, quint32& code) = 0;
    /// Ends the process at once; it has no say in it, and on this platform none in the exit code either. Returns when
    /// it is gone. False for anything that is no handle.
    virtual bool TerminateProcess(quint32 handle, quint32 exitCode) = 0;
    virtual bool CloseHandle(quint32 handle) = 0;

    static constexpr quint32 kStillActive = 259;
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
