#pragma once

#include <QStringList>

namespace setup {

/// Installs the programs of a folder, the report host under every name that is registered for this installation. A
/// running program is not affected; the next start uses the new one. Programs that the folder lacks, and identical
/// ones, are skipped. Returns the paths of the replaced files, relative to the installation. Throws
/// platform::RuntimeError.
QStringList InstallPrograms(const QString& programFolder, const QString& root);

/// True if the folder contains every program that an installation needs.
bool HoldsPrograms(const QString& programFolder);

}  // namespace setup
