#pragma once

#include <QString>

/// Opens a document with the program that the desktop has for it, in the document's folder. True when that was started;
/// never a message.
bool OpenDocument(const QString& path);

/// Opens the program's manual, a document of its id in full width in `folder`; does nothing if there is none.
void OpenManual(const QString& folder, const QString& programId);
