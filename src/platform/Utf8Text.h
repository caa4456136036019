#pragma once

#include <QByteArrayView>
#include <QString>

namespace platform {

// Conversions for stored or typed text. QString's own conversions drop a leading U+FEFF as a byte order mark. Here it
// is an ordinary character; otherwise a search for it alone would become an empty search.

/// From UTF-8; invalid bytes become U+FFFD. A null view gives a null string.
QString TextFromUtf8(QByteArrayView utf8);
/// The same from the locale's encoding, for command line arguments.
QString TextFromLocal8Bit(QByteArrayView bytes);
/// From `count` UTF-16 code units in native byte order; copies them unchanged.
QString TextFromUtf16(const char16_t* units, qsizetype count);
/// The text that consists of one code point.
QString TextOfCharacter(char32_t character);

}  // namespace platform
