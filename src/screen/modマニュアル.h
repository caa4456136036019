#pragma once

#include <QString>

/// Opens the document `path`, with the platform's separators, in the desktop's program for it, which is started in the
/// document's folder. True if the program was started. Shows no message.
bool OpenDocument(const QString& path);

/// Opens the manual of a program, "<folder>/<id in full-width characters>.doc". A failure, such as a missing file, is
/// ignored silently.
void OpenManual(const QString& folder, const QString& programId);
