#pragma once

#include <QString>

/// Opens the document `path` with the desktop's program for it, started in the document's folder. True if the program
/// was started. Shows no message.
bool OpenDocument(const QString& path);

/// Opens the manual of a program, "<folder>/<id in full-width characters>.doc". Silently ignores a missing file.
void OpenManual(const QString& folder, const QString& programId);
