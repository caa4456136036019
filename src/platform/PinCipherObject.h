#pragma once

#include <QString>

namespace platform {

/// Decrypts stored PINs. How they are stored depends on the installation.
class PinCipherObject {
  public:
    virtual ~PinCipherObject() = default;
    /// The PIN in clear text; empty if it can't be decrypted.
    virtual QString ClearText(const QString& stored) = 0;
};

/// For installations that store PINs in clear text.
class UnsealedPins : public PinCipherObject {
  public:
    QString ClearText(const QString& stored) override { return stored; }
};

}  // namespace platform
