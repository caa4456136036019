#pragma once

#include <QDateTime>

namespace platform {

/// The time of day, so that a test can stand still.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0;
};

class SystemClock : public Clock {
  public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
};

}  // namespace platform
