#include "platform/SealedPins.h"

#include <sodium.h>

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "platform/AtomicFile.h"
#include "platform/PlainFile.h"
#include "platform/RuntimeError.h"
#include "platform/Utf8Text.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

// Version of the encryption scheme. A new scheme needs a new prefix, and this one must stay readable.
const QString kMark = u"S1:"_s;
constexpr qsizetype kNonce = crypto_secretbox_NONCEBYTES;
constexpr qsizetype kSeal = crypto_secretbox_MACBYTES;
constexpr size_t kPadding = 16;
constexpr long kEncryptionFailure = 1;
static_assert(PinKey::kBytes == crypto_secretbox_KEYBYTES);

void PrepareLibrary() {
    if (sodium_init() < 0) throw RuntimeError(kEncryptionFailure, u"暗号ライブラリを使えません (libsodium)。"_s);
}

unsigned char* Raw(QByteArray& bytes) { return reinterpret_cast<unsigned char*>(bytes.data()); }
const unsigned char* Raw(const QByteArray& bytes) { return reinterpret_cast<const unsigned char*>(bytes.constData()); }

void Wipe(QByteArray& bytes) { sodium_memzero(bytes.data(), static_cast<size_t>(bytes.size())); }

/// Decoded nonce and ciphertext; empty if the text is malformed.
QByteArray Envelope(const QString& stored) {
    if (!stored.startsWith(kMark)) return {};
    const auto decoded = QByteArray::fromBase64Encoding(QStringView(stored).mid(kMark.size()).toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    const bool whole = decoded && decoded.decoded.size() >= kNonce + kSeal + static_cast<qsizetype>(kPadding);
    return whole ? decoded.decoded : QByteArray();
}

/// The padded plaintext, to be wiped by the caller; empty if authentication with this key fails.
QByteArray OpenEnvelope(const QByteArray& envelope, const PinKey& key) {
    QByteArray clear(envelope.size() - kNonce - kSeal, '\0');
    const bool opened = crypto_secretbox_open_easy(Raw(clear), Raw(envelope) + kNonce,
                                                   static_cast<unsigned long long>(envelope.size() - kNonce),
                                                   Raw(envelope), key.Bytes()) == 0;
    return opened ? clear : QByteArray();
}

}  // namespace

PinKey::PinKey() : bytes_{} {
    PrepareLibrary();
    crypto_secretbox_keygen(bytes_.data());
}

PinKey::PinKey(const QByteArray& bytes) : bytes_{} { std::copy_n(Raw(bytes), kBytes, bytes_.begin()); }

PinKey::~PinKey() { sodium_memzero(bytes_.data(), kBytes); }

std::optional<PinKey> PinKey::Read(const QString& file) {
    PrepareLibrary();
    QFile source(file);
    if (!OpenPlainFile(source, QIODevice::Unbuffered)) return std::nullopt;
    QByteArray bytes = source.read(kBytes + 1);
    std::optional<PinKey> key;
    if (bytes.size() == kBytes) key = PinKey(bytes);
    Wipe(bytes);
    return key;
}

// PINs encrypted with a lost key can't be recovered, so the key must be on the disk before it is used.
bool PinKey::Write(const QString& file) const {
    // Written under another name first: a process that is killed here must not leave half a key, under which no PIN
    // opens.
    QFile target(file + u"-unfinished"_s);
    target.remove();
    // Created with owner-only rights and widened at the end, so that no other user can read it in between.
    const auto own = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    if (!target.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered, own)) return false;
    const bool written = target.write(reinterpret_cast<const char*>(bytes_.data()), kBytes) == kBytes &&
                         target.setPermissions(own | QFileDevice::ReadGroup) && SyncFile(target.handle());
    target.close();
    // Never replaces a key that exists.
    const bool named = written && target.rename(file);
    if (named && SyncFolder(QFileInfo(file).path())) return true;
    target.remove();
    return false;
}

QString PinKeyFileName() { return u"pin.key"_s; }

bool IsSealedPin(const QString& stored) { return !Envelope(stored).isEmpty(); }

QString SealPin(const QString& clear, const PinKey& key) {
    PrepareLibrary();
    QByteArray padded = clear.toUtf8();
    const auto length = static_cast<size_t>(padded.size());
    const size_t blocks = length / kPadding + 1;
    padded.resize(static_cast<qsizetype>(blocks) * static_cast<qsizetype>(kPadding));
    size_t paddedLength = 0;
    sodium_pad(&paddedLength, Raw(padded), length, kPadding, static_cast<size_t>(padded.size()));
    QByteArray envelope(kNonce + kSeal + padded.size(), '\0');
    randombytes_buf(Raw(envelope), kNonce);
    crypto_secretbox_easy(Raw(envelope) + kNonce, Raw(padded), paddedLength, Raw(envelope), key.Bytes());
    Wipe(padded);
    return kMark + QString::fromLatin1(envelope.toBase64());
}

std::optional<QString> OpenPin(const QString& stored, const PinKey& key) {
    const QByteArray envelope = Envelope(stored);
    if (envelope.isEmpty()) return std::nullopt;
    QByteArray clear = OpenEnvelope(envelope, key);
    size_t length = 0;
    if (sodium_unpad(&length, Raw(clear), static_cast<size_t>(clear.size()), kPadding) != 0) return std::nullopt;
    QString pin = TextFromUtf8(QByteArrayView(clear).first(static_cast<qsizetype>(length)));
    Wipe(clear);
    return pin;
}

SealedPins::SealedPins(QString keyFile, std::function<void(const QString&)> report)
    : keyFile_(std::move(keyFile)), report_(std::move(report)) {}

void SealedPins::ReadKey() {
    if (std::exchange(keyRead_, true)) return;
    hasKeyFile_ = QFile::exists(keyFile_);
    key_ = PinKey::Read(keyFile_);
}

void SealedPins::ReportOnce(const QString& reason) {
    if (!std::exchange(reported_, true)) report_(u"暗証番号を開けません。"_s + reason);
}

const PinKey* SealedPins::KeyFor(const QString& stored) {
    if (!IsSealedPin(stored)) {
        ReportOnce(u"封じられていない暗証番号があります。"_s);
    } else if (!hasKeyFile_) {
        ReportOnce(u"鍵ファイル %1 がありません。"_s.arg(keyFile_));
    } else if (!key_) {
        ReportOnce(u"鍵ファイル %1 を読めません。"_s.arg(keyFile_));
    } else {
        return &*key_;
    }
    return nullptr;
}

QString SealedPins::ClearText(const QString& stored) {
    if (stored.isEmpty()) return {};
    ReadKey();
    if (!hasKeyFile_ && !IsSealedPin(stored)) return stored;
    const PinKey* key = KeyFor(stored);
    if (key == nullptr) return {};
    if (std::optional<QString> pin = OpenPin(stored, *key)) return *std::move(pin);
    ReportOnce(u"鍵ファイル %1 の鍵で封じられたものではありません。"_s.arg(keyFile_));
    return {};
}

void SealedPins::Check(const QString& stored) {
    if (reported_ || stored.isEmpty()) return;
    ReadKey();
    if (!hasKeyFile_ && !IsSealedPin(stored)) return;
    if (KeyFor(stored) == nullptr || std::exchange(decrypted_, true)) return;
    QString pin = ClearText(stored);
    WipeText(pin);
}

void WipeText(QString& text) noexcept {
    // If the data is shared, data() would detach and only the copy would be wiped.
    if (text.isDetached()) sodium_memzero(text.data(), static_cast<size_t>(text.size()) * sizeof(QChar));
    text.resize(0);
}

}  // namespace platform
