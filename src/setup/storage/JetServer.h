#pragma once

#include <QIODevice>
#include <QString>

namespace setup {

/// The word by which suite-setup is started as the reader of a file. It is not for people: standard input and output
/// carry the frames of TableStream.h.
inline const QString kJetServerVerb = QStringLiteral("read-jet-file");

/// The reader process: answers requests from `in` until its end. A failure is the last answer. `in` must be unbuffered.
void ServeJetFile(const QString& path, QIODevice& in, QIODevice& out);

/// The same over standard input and output.
void ServeJetFile(const QString& path);

}  // namespace setup
