#pragma once

#include <QString>

#include "globals/EnvironmentDefinition.h"

// Files and folders of an installation. Paths are accessed through platform::Services().files.

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

/// The kind by the suffix of a path: Mdb for ".mdb" in lower case, otherwise Accdb. The file need not exist.
FileKind KindOfDesktopFile(const QString& path);

/// FileSystem::FileExists: true for a regular file.
bool FileExistsCheck(const QString& path);
/// FileSystem::CopyFile: replaces the target; false on failure, without a message.
bool CopyFileOver(const QString& source, const QString& target);

/// Creates the missing folders up to the last separator of a path; the part after it is taken for a file name. Accepts
/// network paths ("\\server\share\..."; server and share must exist), drive paths (containing ":\") and absolute paths
/// of this platform; has no effect on others. Separators are "\" and that of the platform. If a folder cannot be
/// created, a message box is shown and the rest is skipped; throws nothing.
void EnsureFolderPath(const QString& path);
