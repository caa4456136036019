#pragma once

#include <QString>

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
};

class HostProcessService : public ProcessService {
  public:
    void EndProcess(int exitCode) override;
    void StartProgram(const QString& path, const QString& arguments) override;
    bool OpenDocument(const QString& path, const QString& workingFolder) override;
};

}  // namespace platform
