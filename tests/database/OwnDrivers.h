#pragma once

#include <QByteArray>

/// Replaces the driver manager's lists of drivers and data sources while it exists. The driver manager caches them, so
/// all tests of a program use the same lists.
class OwnDrivers {
  public:
    OwnDrivers();
    ~OwnDrivers();
    OwnDrivers(const OwnDrivers&) = delete;
    OwnDrivers& operator=(const OwnDrivers&) = delete;

  private:
    QByteArray system_, user_;
};
