#include "platform/LimitedProcess.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <linux/close_range.h>
#include <QElapsedTimer>
#include <csignal>

namespace platform {
namespace {

constexpr int kEndMilliseconds = 5000;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kLimitsMemory = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kLimitsMemory = false;
#else
constexpr bool kLimitsMemory = true;
#endif
#else
constexpr bool kLimitsMemory = true;
#endif

void SetLimit(int resource, rlim_t soft, rlim_t hard) {
    const rlimit limit{soft, hard};
    ::setrlimit(static_cast<__rlimit_resource_t>(resource), &limit);
}

/// Runs in the child between fork and exec: only async-signal-safe calls.
void ApplyLimits(const ProcessLimits& limits) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    const auto seconds = static_cast<rlim_t>(limits.cpuSeconds);
    // SIGXCPU at the soft limit identifies the cause; a process that ignores it is killed at the hard limit.
    SetLimit(RLIMIT_CPU, seconds, seconds + 1);
    SetLimit(RLIMIT_CORE, 0, 0);
    if (!kLimitsMemory) return;
    const auto bytes = static_cast<rlim_t>(limits.memoryBytes);
    SetLimit(RLIMIT_AS, bytes, bytes);
}

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

double CpuOfEndedChildren() {
    rusage used = {};
    ::getrusage(RUSAGE_CHILDREN, &used);
    return Seconds(used.ru_utime) + Seconds(used.ru_stime);
}

}  // namespace

LimitedProcess::LimitedProcess(const QString& program, const QStringList& arguments, const ProcessLimits& limits)
    : limits_(limits), waitLeft_(limits.waitMilliseconds), cpuOfOthers_(CpuOfEndedChildren()) {
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.setChildProcessModifier([limits] { ApplyLimits(limits); });
    process_.start(program, arguments);
    started_ = process_.waitForStarted(waitLeft_);
}

LimitedProcess::~LimitedProcess() {
    process_.closeWriteChannel();
    process_.kill();
    process_.waitForFinished(kEndMilliseconds);
}

bool LimitedProcess::TimedOut() {
    if (silent_) return true;
    process_.waitForFinished(kEndMilliseconds);
    if (process_.state() != QProcess::NotRunning || process_.exitStatus() != QProcess::CrashExit) return false;
    if (process_.exitCode() == SIGXCPU) return true;
    // At the hard limit the signal is the same as that of any other kill.
    return process_.exitCode() == SIGKILL && CpuOfEndedChildren() - cpuOfOthers_ >= limits_.cpuSeconds;
}

void LimitedProcess::Write(const QByteArray& bytes) {
    process_.write(bytes);
    while (process_.bytesToWrite() > 0 &&
           WaitFor([this](int milliseconds) { return process_.waitForBytesWritten(milliseconds); })) {
    }
}

QByteArray LimitedProcess::Read(qsizetype count) {
    while (process_.bytesAvailable() < count && WaitForOutput()) {
    }
    return process_.read(count);
}

bool LimitedProcess::WaitForOutput() {
    const qint64 before = process_.bytesAvailable();
    return WaitFor([this, before](int milliseconds) {
        return process_.waitForReadyRead(milliseconds) || process_.bytesAvailable() > before;
    });
}

/// `wait` gets the milliseconds left. False if the process has ended, or is killed because they have passed.
template <typename Wait>
bool LimitedProcess::WaitFor(Wait wait) {
    QElapsedTimer timer;
    timer.start();
    const bool mayWait = waitLeft_ > 0;
    const bool done = wait(waitLeft_);
    waitLeft_ -= static_cast<int>(std::min<qint64>(timer.elapsed(), waitLeft_));
    if (done && mayWait) return true;
    // A process that ends closes its channels first; that is not the timeout.
    timer.restart();
    if (waitLeft_ > 0 && process_.state() != QProcess::NotRunning) process_.waitForFinished(waitLeft_);
    waitLeft_ -= static_cast<int>(std::min<qint64>(timer.elapsed(), waitLeft_));
    if (process_.state() == QProcess::NotRunning) return false;
    silent_ = true;
    process_.kill();
    return false;
}

}  // namespace platform
