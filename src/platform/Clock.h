#pragma once

#include <QDateTime>
#include <QThread>
#include <chrono>

namespace platform {

/// Time of day and monotonic time; tests replace it by a fake.
class Clock {
  public:
    virtual ~Clock() = default;
    /// Local time.
    virtual QDateTime Now() const = 0;
    /// Monotonic time since an unspecified start. Not affected by changes of the system clock.
    virtual std::chrono::milliseconds Elapsed() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    }
    /// Blocks the thread without processing events.
    virtual void Sleep(int milliseconds) const = 0;
};

class SystemClock : public Clock {
  public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    void Sleep(int milliseconds) const override { QThread::msleep(static_cast<unsigned long>(milliseconds)); }
};

}  // namespace platform
