#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <functional>
#include <optional>

#include "platform/PinCipherObject.h"

namespace platform {

/// The key of an installation, wiped when it goes.
class PinKey {
  public:
    static constexpr int kBytes = 32;

    /// A new key, by chance.
    PinKey();
    ~PinKey();
    PinKey(const PinKey&) = default;
    PinKey& operator=(const PinKey&) = default;

    /// Reads a key file: exactly kBytes bytes. None when it is missing, unreadable or of another length.
    static std::optional<PinKey> Read(const QString& file);
    /// Makes the key file, readable by owner and group and writable by the owner. False when there is a file already,
    /// or it can't be written whole.
    bool Write(const QString& file) const;

    const unsigned char* Bytes() const { return bytes_.data(); }

  private:
    explicit PinKey(const QByteArray& bytes);
    std::array<unsigned char, kBytes> bytes_;
};

/// Name of the key file in the common conf folder.
QString PinKeyFileName();

/// True when the text has the form of a sealed PIN: the version's mark and enough behind it. Nothing is opened.
bool IsSealedPin(const QString& stored);
/// The PIN as it is stored: mark and base64, ASCII only. Sealing the same PIN twice gives two texts. Longer PINs don't
/// show by longer texts below 16 bytes.
QString SealPin(const QString& clear, const PinKey& key);
/// The PIN, or none when the text is not sealed under this key.
std::optional<QString> OpenPin(const QString& stored, const PinKey& key);

/// PINs of an installation that are sealed under its key file. An installation without a key file has never been
/// moved over: its PINs are stored as they are typed, and only there such a text is taken. Everything that can't be
/// opened gives empty text, and the first of a run is told.
class SealedPins : public PinCipherObject {
  public:
    /// `tell` gets one sentence, once.
    SealedPins(QString keyFile, std::function<void(const QString&)> tell);

    QString ClearText(const QString& stored) override;

  private:
    void LookForKey();
    void Tell(const QString& reason);

    QString keyFile_;
    std::function<void(const QString&)> tell_;
    bool looked_ = false;
    bool hasKeyFile_ = false;
    std::optional<PinKey> key_;
    bool told_ = false;
};

}  // namespace platform
