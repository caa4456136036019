#pragma once

#include <QString>

#include "platform/SealedPins.h"

/// PINs of an installation as somebody reads and writes them who holds its key file.
class SamplePins {
  public:
    explicit SamplePins(const QString& root) : key_(*platform::PinKey::Read(root + QStringLiteral("/conf/pin.key"))) {}
    QString Sealed(const QString& clear) const { return platform::SealPin(clear, key_); }
    /// Null text for what the key does not open.
    QString Opened(const QString& stored) const { return platform::OpenPin(stored, key_).value_or(QString()); }

  private:
    platform::PinKey key_;
};
