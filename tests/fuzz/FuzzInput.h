#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "platform/Utf8Text.h"

/// What the fuzzer made up for one run, handed out piece by piece.
class FuzzInput {
  public:
    FuzzInput(const uint8_t* data, size_t size)
        : rest_(QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))) {}

    /// 0 at the end of the input.
    uint8_t Byte() { return rest_.isEmpty() ? 0 : static_cast<uint8_t>(Take(1).front()); }
    /// Bytes up to the next 0xFF, which is part of no UTF-8, or all that is left.
    QByteArray Bytes() {
        const qsizetype end = rest_.indexOf('\xff');
        if (end < 0) return Take(rest_.size());
        QByteArray piece = Take(end);
        Take(1);
        return piece;
    }
    /// The same as a text: whatever is no UTF-8 becomes U+FFFD.
    QString Text() { return platform::TextFromUtf8(Bytes()); }
    /// Any UTF-16 units, halves of surrogate pairs among them.
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

/// What has to hold whatever the input is. Ends the program otherwise, which the fuzzer takes for a crash.
inline void Require(bool holds, const char* what) {
    if (holds) return;
    std::cerr << "does not hold: " << what << std::endl;
    std::abort();
}
