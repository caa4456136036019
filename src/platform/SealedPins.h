#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <functional>
#include <optional>

namespace platform {

// PINs of staff members, offices and the company, as stored in the general database: in clear text, or encrypted
// ("sealed") with libsodium's secretbox and a key file of the installation.

/// Converts stored PINs to clear text.
class PinCipherObject {
  public:
    virtual ~PinCipherObject() = default;
    /// The PIN in clear text for the text of a PIN column; empty if it can't be decrypted.
    virtual QString ClearText(const QString& stored) = 0;
    /// Reports a PIN that ClearText cannot return, for readers of many PINs that show only few of them.
    virtual void Check(const QString& stored) { ClearText(stored); }
};

/// For installations that store PINs in clear text.
class UnsealedPins : public PinCipherObject {
  public:
    QString ClearText(const QString& stored) override { return stored; }
};

// PinKey(), PinKey::Read, SealPin and SealedPins::ClearText throw RuntimeError 1 if libsodium cannot be initialised.

/// Encryption key of an installation. The memory is wiped in the destructor.
class PinKey {
  public:
    static constexpr int kBytes = 32;

    /// Generates a random key.
    PinKey();
    ~PinKey();
    PinKey(const PinKey&) = default;
    PinKey& operator=(const PinKey&) = default;

    /// Reads a key file of exactly kBytes bytes. nullopt if it is missing, unreadable or of another length.
    static std::optional<PinKey> Read(const QString& file);
    /// Creates the key file with mode 0640. False if it exists already or can't be written completely.
    bool Write(const QString& file) const;

    const unsigned char* Bytes() const { return bytes_.data(); }

  private:
    explicit PinKey(const QByteArray& bytes);
    std::array<unsigned char, kBytes> bytes_;
};

/// Name of the key file in the common configuration folder (InstallationLayout::CommonConfFolder).
QString PinKeyFileName();

/// True if the text has the form of an encrypted PIN: version prefix, base64, sufficient length. Does not decrypt.
bool IsSealedPin(const QString& stored);
/// Encrypts a PIN: version prefix and base64, ASCII only. The nonce is random, so two results for one PIN differ.
/// Padded to multiples of 16 bytes, so that the length of a PIN below 16 bytes does not show.
QString SealPin(const QString& clear, const PinKey& key);
/// Decrypts a PIN; nullopt if it is not encrypted or was encrypted with another key.
std::optional<QString> OpenPin(const QString& stored, const PinKey& key);

/// Decrypts the PINs of an installation with its key file. Without a key file the installation does not encrypt PINs,
/// and clear text is returned as stored; with one, clear text is not accepted. Only the first failure of an object is
/// reported.
class SealedPins : public PinCipherObject {
  public:
    /// `keyFile`: path, read at the first PIN. `report` is called at most once, with the reason as Japanese text.
    SealedPins(QString keyFile, std::function<void(const QString&)> report);

    QString ClearText(const QString& stored) override;
    /// Decrypts the first PIN only: one installation has one key, and decrypting costs as much as reading a row. Of
    /// another PIN that was encrypted with another key the failure is reported by ClearText.
    void Check(const QString& stored) override;

  private:
    /// The key for an encrypted PIN; null, after a report, if it has none.
    const PinKey* KeyFor(const QString& stored);
    void ReadKey();
    void ReportOnce(const QString& reason);

    QString keyFile_;
    std::function<void(const QString&)> report_;
    bool keyRead_ = false;
    bool hasKeyFile_ = false;
    std::optional<PinKey> key_;
    bool reported_ = false;
    bool decrypted_ = false;  // Check has decrypted one
};

/// Overwrites the text's memory with NULs and clears the text. Memory shared with other QStrings is not overwritten.
void WipeText(QString& text) noexcept;

}  // namespace platform
