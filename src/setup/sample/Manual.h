#pragma once

#include <QByteArray>
#include <QString>

namespace setup {

/// The clerk's manual as a document that word processors open under the suffix .doc (RTF, ASCII bytes only).
QByteArray ManualDocument();

/// Writes it. Throws platform::RuntimeError.
void WriteManual(const QString& path);

}  // namespace setup
