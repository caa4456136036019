#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>

namespace setup {

// Texts for a terminal, whose full-width characters take two columns.

/// Width in terminal columns: full-width characters take two, combining marks none.
int DisplayWidth(QStringView text);

/// Pads with trailing or leading blanks to a width in terminal columns. Longer text is not truncated.
QString PadRight(const QString& text, int width);
QString PadLeft(const QString& text, int width);

/// The pieces of a text between which a line may end: at blanks, which belong to the piece before them, and between
/// Japanese characters as their rules allow, but not inside words.
QStringList LineBreakPieces(const QString& text);

/// Breaks a text into lines of at most `width` terminal columns, between its LineBreakPieces; a longer piece is not
/// broken. Line feeds in the text are kept as line ends.
QStringList WrapText(const QString& text, int width);

/// Replaces line breaks and other control characters with blanks.
QString StripControlCharacters(const QString& text);

/// Prints lines of cells in columns as wide as their widest cell. The first column is aligned to the right; the last
/// one is not padded.
void PrintAligned(const QList<QStringList>& lines, QTextStream& out);

/// A timestamp yyyymmdd hhnnss as 2026/11/21 09:30:15; any other text unchanged.
QString ReadableTime(const QString& stamp);

}  // namespace setup
