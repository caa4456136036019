#pragma once

#include <QString>

namespace setup {

/// Columns that a text takes on a terminal: full-width characters take two, marks that sit on the one before none.
int DisplayWidth(QStringView text);

/// Blanks added behind, or in front, up to a width in terminal columns. A longer text stays whole.
QString PadRight(const QString& text, int width);
QString PadLeft(const QString& text, int width);

/// The text on one line: line ends and other control characters become blanks.
QString StripControlCharacters(const QString& text);

/// A stamp yyyymmdd hhnnss as 2026/11/21 09:30:15; any other text as it is.
QString ReadableTime(const QString& stamp);

}  // namespace setup
