#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

// Code page 932 (Shift_JIS with Windows' extensions and mapping), the encoding of all external files. A character that
// it cannot encode becomes one "?" per UTF-16 unit. No function throws; the first call ends the program by qFatal if
// the C library has no converter for code page 932.

/// Encoded length in bytes: full-width characters 2, ASCII and half-width kana 1, a unit that cannot be encoded 1.
int ByteLength932(QStringView text);

/// Encoded length of one UTF-16 unit in bytes, 1 or 2.
int UnitLength932(char16_t unit);

/// An encoded text.
struct Encoded932 {
    QByteArray bytes;
    int lost = 0;  ///< UTF-16 units that became "?"
};
Encoded932 Encode932(QStringView text);
/// Appends the encoded text to `bytes`. Returns the number of UTF-16 units that became "?".
int AppendEncoded932(QStringView text, QByteArray& bytes);

/// The text of encoded bytes. Each invalid byte becomes U+FFFD, also a lead byte without its second byte at the end.
QString Decode932(QByteArrayView bytes);
