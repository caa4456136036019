#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>

namespace platform {

/// Limits of a LimitedProcess.
struct ProcessLimits {
    int cpuSeconds = 60;
    qint64 memoryBytes =
        qint64{1} << 30;            ///< address space; not applied under AddressSanitizer, which reserves terabytes
    int waitMilliseconds = 60'000;  ///< total time that all calls together wait for its start, input and output
};

/// An untrusted child process: limited CPU time and memory, no inherited descriptors except its standard streams, no
/// core dump. Killed when the object is destroyed or this process dies. Its standard error is discarded.
class LimitedProcess {
  public:
    LimitedProcess(const QString& program, const QStringList& arguments, const ProcessLimits& limits);
    ~LimitedProcess();
    LimitedProcess(const LimitedProcess&) = delete;
    LimitedProcess& operator=(const LimitedProcess&) = delete;

    /// False if the program could not be started within the time to wait.
    bool Started() const { return started_; }
    /// True if the process was killed because it exceeded the CPU limit or the time to wait. Waits up to 5 s for its
    /// end. Not for the memory limit, at which allocations of the process fail.
    bool TimedOut();
    /// Writes to its standard input, and blocks until the pipe has taken all bytes. Reports no error: if the process
    /// has ended or was killed at a limit, the next Read returns too few bytes.
    void Write(const QByteArray& bytes);
    /// Blocks for the next `count` bytes of its standard output. Fewer if it has ended or was killed at a limit.
    QByteArray Read(qsizetype count);

  private:
    template <typename Wait>
    bool WaitFor(Wait wait);
    bool WaitForOutput();

    QProcess process_;
    ProcessLimits limits_;
    int waitLeft_;        // milliseconds
    double cpuOfOthers_;  // seconds, of the children that ended before
    bool started_ = false, silent_ = false;
};

}  // namespace platform
