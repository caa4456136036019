#pragma once

#include <QDateTime>
#include <QThread>

namespace platform {

/// The time of day and its passing, so that a test can stand still.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0;
    /// Stands still without letting events through.
    virtual void Sleep(int milliseconds) const = 0;
};

class SystemClock : public Clock {
  public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    void Sleep(int milliseconds) const override { QThread::msleep(static_cast<unsigned long>(milliseconds)); }
};

}  // namespace platform
