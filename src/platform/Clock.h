#pragma once

#include <QDateTime>
#include <QThread>
#include <chrono>

namespace platform {

/// The time of day and its passing, so that a test can stand still.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0;
    /// Stands still without letting events through.
    virtual void Sleep(int milliseconds) const = 0;
    /// Time since some moment of the past. It never jumps, whatever the time of day does.
    virtual std::chrono::milliseconds Elapsed() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    }
};

class SystemClock : public Clock {
  public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    void Sleep(int milliseconds) const override { QThread::msleep(static_cast<unsigned long>(milliseconds)); }
};

}  // namespace platform
