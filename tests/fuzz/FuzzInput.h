#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "platform/Utf8Text.h"

/// Splits the fuzzer's input into values.
class FuzzInput {
  public:
    FuzzInput(const uint8_t* data, size_t size)
        : rest_(QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))) {}

    /// 0 at the end of the input.
    uint8_t Byte() { return rest_.isEmpty() ? 0 : static_cast<uint8_t>(Take(1).front()); }
    /// Bytes up to the next 0xFF, which never occurs in UTF-8, or the rest of the input.
    QByteArray Bytes() {
        const qsizetype end = rest_.indexOf('\xff');
        if (end < 0) return Take(rest_.size());
        QByteArray piece = Take(end);
        Take(1);
        return piece;
    }
    /// As Bytes, decoded; invalid UTF-8 becomes U+FFFD.
    QString Text() { return platform::TextFromUtf8(Bytes()); }
    /// The rest of the input as arbitrary UTF-16, including unpaired surrogates.
    QString Units() {
        const QByteArray piece = Take(rest_.size() / 2 * 2);
        return QString(reinterpret_cast<const QChar*>(piece.constData()), piece.size() / 2);
    }

  private:
    QByteArray Take(qsizetype count) {
        QByteArray piece(rest_.constData(), std::min(count, rest_.size()));
        rest_.remove(0, piece.size());
        return piece;
    }

    QByteArray rest_;
};

/// Assertion that must hold for every input. Aborts on failure, which the fuzzer reports as a crash.
inline void Require(bool holds, const char* what) {
    if (holds) return;
    std::cerr << "does not hold: " << what << std::endl;
    std::abort();
}
