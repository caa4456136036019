#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

// Code page 932 with Windows' mapping, the encoding at every outer boundary of the suite. A character without a form
// there becomes one "?" for each of its UTF-16 units. None of these fails.

/// Length in bytes of the text's encoded form: full-width 2, ASCII and half-width kana 1, no form 1 a UTF-16 unit.
int ByteLength932(QStringView text);

/// Bytes of the UTF-16 unit's encoded form, 1 or 2.
int UnitLength932(char16_t unit);

struct Encoded932 {
    QByteArray bytes;
    int lost = 0;  ///< UTF-16 units that became "?"
};
Encoded932 Encode932(QStringView text);
/// The same behind what `bytes` holds already. Number of UTF-16 units that became "?".
int AppendEncoded932(QStringView text, QByteArray& bytes);

/// Bytes that are no character there become U+FFFD, one for each byte; so does a lead byte at the very end.
QString Decode932(QByteArrayView bytes);
