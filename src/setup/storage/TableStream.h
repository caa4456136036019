#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Protocol between suite-setup and the process that reads a foreign database file for it. A malicious file may have
// taken over that process, so the parsing functions validate everything and throw platform::RuntimeError on the first
// byte that the encoding functions could not have written.
//
// A frame is a 4 byte length (little-endian) followed by that many bytes: one byte for the kind, then the content, a
// list of texts. Each text is a 4 byte length and UTF-8 without NUL; the length 0xFFFFFFFF is a Null.

namespace setup {

enum class FrameKind : char {
    Request = 'Q',  ///< texts: the request, and the table
    Names = 'N',    ///< texts: tables or columns
    Row = 'R',      ///< texts: values in the order of the columns
    End = 'E',      ///< texts: one, the number of rows
    Failure = 'F',  ///< texts: one, the message of a RuntimeError
};

struct Frame {
    FrameKind kind;
    QStringList texts;
};

inline constexpr qsizetype kFrameHead = 4;
inline constexpr qsizetype kLongestText = qsizetype{1} << 20;   ///< bytes of UTF-8
inline constexpr qsizetype kLongestFrame = qsizetype{1} << 26;  ///< bytes after the length
inline constexpr qsizetype kMostColumns = 255;                  ///< limit of the file format
inline constexpr qsizetype kMostTables = 32'768;                ///< limit of the file format

/// The complete frame including its length. Throws platform::RuntimeError for a row that is too long.
QByteArray EncodeFrame(const Frame& frame);
/// Length of the rest of a frame, from its first 4 bytes.
qsizetype FrameLength(const QByteArray& head);
/// Parses a frame from the bytes after its length.
Frame ParseFrame(const QByteArray& body);

/// The names in a Names frame: at most `most`, none of them Null or empty.
QStringList ParseNames(const Frame& frame, qsizetype most);
/// The row count in an End frame.
qint64 ParseCount(const Frame& frame);

}  // namespace setup
