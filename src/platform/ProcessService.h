#pragma once

#include <QString>
#include <QStringList>

namespace platform {

enum class StartWindow { Normal, Hidden };

inline constexpr long kFileNotFound = 53;

/// Processes, this one included.
class ProcessService {
  public:
    virtual ~ProcessService() = default;

    /// Leaves the process at once, out of whatever loop or modal window it stands in. Only a test's stand-in
    /// returns, so callers must have nothing left to do.
    virtual void EndProcess(int exitCode) = 0;
    /// Opens a document with the program that the desktop has for it. False when there is none; never a message.
    virtual bool OpenDocument(const QString& path, const QString& workingFolder) = 0;

    /// Starts a program, which goes on when this one ends, and gives its process id. `program` is an absolute path with
    /// either separator; where the name ends in ".exe" and there is no such file, the name without it is taken. Each
    /// argument arrives as one, blanks included. RuntimeError kFileNotFound when there is no such program or it can't
    /// be run.
    virtual quint32 StartProcess(const QString& program, const QStringList& arguments, StartWindow window) = 0;
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
    /// Stands still; no event is let through.
    virtual void Sleep(int milliseconds) = 0;

    static constexpr quint32 kStillActive = 259;
};

/// Set to "1" for programs that are started hidden: they put up no window before they are asked to.
inline constexpr char kStartHiddenVariable[] = "MEIBO_START_HIDDEN";

class HostProcessService : public ProcessService {
  public:
    void EndProcess(int exitCode) override;
    bool OpenDocument(const QString& path, const QString& workingFolder) override;
    quint32 StartProcess(const QString& program, const QStringList& arguments, StartWindow window) override;
    quint32 OpenProcess(quint32 access, bool inherit, quint32 processId) override;
    bool GetExitCodeProcess(quint32 handle, quint32& code) override;
    bool TerminateProcess(quint32 handle, quint32 exitCode) override;
    bool CloseHandle(quint32 handle) override;
    void Sleep(int milliseconds) override;
};

}  // namespace platform
