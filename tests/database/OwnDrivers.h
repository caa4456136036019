#pragma once

#include <QByteArray>

/// The driver manager's lists of drivers and data sources as tests need them, while it lives. The manager remembers
/// what it has read, so they are the same for all tests of a program.
class OwnDrivers {
  public:
    OwnDrivers();
    ~OwnDrivers();
    OwnDrivers(const OwnDrivers&) = delete;
    OwnDrivers& operator=(const OwnDrivers&) = delete;

  private:
    QByteArray system_, user_;
};
