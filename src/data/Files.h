#pragma once

#include <QString>

#include "globals/EnvironmentDefinition.h"

// Files and folders of an installation.

/// Name of a desktop database file with the suffix of its kind: "repdb" becomes "repdb.accdb" or "repdb.mdb". Empty for
/// FileKind::None.
QString DesktopFileName(const QString& name, FileKind kind);

/// A desktop database file; empty path and FileKind::None if not found.
struct DesktopFile {
    QString path;
    FileKind kind = FileKind::None;
};

/// Finds the file `name`, given without suffix, in a folder; .accdb takes precedence over .mdb.
DesktopFile FindDesktopFile(const QString& folder, const QString& name);

/// The kind by the suffix of a path: Mdb for ".mdb", otherwise Accdb.
FileKind KindOfDesktopFile(const QString& path);

/// True if the path is an existing file, not a folder.
bool FileExistsCheck(const QString& path);
/// Copies and overwrites the target. Returns false on failure, shows no message.
bool CopyFileOver(const QString& source, const QString& target);

/// Creates the missing folders up to the last separator of a path; the part after it may be a file name. Accepts
/// network paths ("\\", server and share must exist), drive paths (":\") and absolute paths of this platform; does
/// nothing for others. Both separators are accepted. If a folder cannot be created, stops with a message box; throws
/// nothing.
void EnsureFolderPath(const QString& path);
