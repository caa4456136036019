#pragma once

#include <QByteArray>
#include <QString>

namespace setup {

/// The clerk's manual as RTF (ASCII only), which word processors also open with the suffix .doc.
QByteArray ManualDocument();

/// Writes the manual to a file. Throws platform::RuntimeError.
void WriteManual(const QString& path);

}  // namespace setup
