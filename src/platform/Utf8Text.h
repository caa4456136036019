#pragma once

#include <QByteArrayView>
#include <QString>

namespace platform {

// Texts that were stored or typed. Qt's own conversions take a leading U+FEFF for a mark of the byte order and drop
// it; in a stored value or a search it is a character like any other, and a search for it alone would become empty.

/// Every character of the UTF-8; a byte that is no UTF-8 becomes U+FFFD. A null view gives a null text.
QString TextFromUtf8(QByteArrayView utf8);
/// The same from the encoding of the system, for arguments of the command line.
QString TextFromLocal8Bit(QByteArrayView bytes);
/// The units as they are, in the byte order of this machine.
QString TextFromUtf16(const char16_t* units, qsizetype count);
/// One character, as one or two units.
QString TextOfCharacter(char32_t character);

}  // namespace platform
