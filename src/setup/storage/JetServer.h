#pragma once

#include <QIODevice>
#include <QString>

namespace setup {

/// Internal verb that starts suite-setup as the reader process of a file. Standard input and output carry the frames of
/// TableStream.h.
inline const QString kJetServerVerb = QStringLiteral("read-jet-file");

/// Main loop of the reader process: answers requests from `in` until its end. An error is sent as the last answer. `in`
/// must be unbuffered.
void ServeJetFile(const QString& path, QIODevice& in, QIODevice& out);

/// Same, over standard input and output.
void ServeJetFile(const QString& path);

}  // namespace setup
