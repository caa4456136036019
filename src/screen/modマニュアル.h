#pragma once

#include <QString>

/// Opens a document with the program that the desktop has for it, in the document's folder. True when that was started;
/// never a message.
bool OpenDocument(const QString& path);

/// Opens the program's manual; nothing happens where there is none.
void OpenManual();
