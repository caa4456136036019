#pragma once

#include <QString>

#include "platform/SealedPins.h"

/// Encrypts and decrypts PINs with the key file of an installation.
class SamplePins {
  public:
    explicit SamplePins(const QString& root) : key_(*platform::PinKey::Read(root + QStringLiteral("/conf/pin.key"))) {}
    QString Sealed(const QString& clear) const { return platform::SealPin(clear, key_); }
    /// Null QString if the key cannot decrypt it.
    QString Opened(const QString& stored) const { return platform::OpenPin(stored, key_).value_or(QString()); }

  private:
    platform::PinKey key_;
};
