#pragma once

#include <QString>

namespace setup {

/// Width in terminal columns: full-width characters take two, combining marks none.
int DisplayWidth(QStringView text);

/// Pads with trailing or leading blanks to a width in terminal columns. Longer text is not truncated.
QString PadRight(const QString& text, int width);
QString PadLeft(const QString& text, int width);

/// Replaces line breaks and other control characters with blanks.
QString StripControlCharacters(const QString& text);

/// A timestamp yyyymmdd hhnnss as 2026/11/21 09:30:15; any other text unchanged.
QString ReadableTime(const QString& stamp);

}  // namespace setup
