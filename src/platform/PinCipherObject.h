#pragma once

#include <QString>

namespace platform {

/// Turns a stored PIN into clear text. How PINs are stored is a matter of the installation.
class PinCipherObject {
  public:
    virtual ~PinCipherObject() = default;
    /// The clear text of a stored PIN; empty when it cannot be read.
    virtual QString ClearText(const QString& stored) = 0;
};

/// For installations whose PINs are stored as they are typed.
class UnsealedPins : public PinCipherObject {
  public:
    QString ClearText(const QString& stored) override { return stored; }
};

}  // namespace platform
