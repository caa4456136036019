#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>

namespace platform {

struct ProcessLimits {
    int cpuSeconds = 60;
    qint64 memoryBytes =
        qint64{1} << 30;            ///< address space; not applied under AddressSanitizer, which reserves terabytes
    int waitMilliseconds = 60'000;  ///< all waiting for output of the process taken together
};

/// A child process that is not trusted: it has limits of processor time and memory, no descriptor of this process but
/// its three standard streams, writes no core dump, and is killed with the object or with this process. Its standard
/// error output is discarded.
class LimitedProcess {
  public:
    LimitedProcess(const QString& program, const QStringList& arguments, const ProcessLimits& limits);
    ~LimitedProcess();
    LimitedProcess(const LimitedProcess&) = delete;
    LimitedProcess& operator=(const LimitedProcess&) = delete;

    /// False when the program could not be run.
    bool Started() const { return started_; }
    /// True when the process was ended because it ran or was silent for too long.
    bool TimedOut();
    /// Bytes for its standard input. A process that has ended takes none, which the next Read shows.
    void Write(const QByteArray& bytes);
    /// The next `count` bytes of its standard output; fewer only when it has ended or was killed at a limit.
    QByteArray Read(qsizetype count);

  private:
    bool WaitForOutput();

    QProcess process_;
    int waitLeft_;  // milliseconds
    bool started_ = false, silent_ = false;
};

}  // namespace platform
