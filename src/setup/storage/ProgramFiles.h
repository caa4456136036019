#pragma once

#include <QStringList>

namespace setup {

/// Puts the programs of a folder into an installation, the report host under every name it is registered by there.
/// A program that is running goes on as it is, the next start takes the new one. Programs that the folder lacks, and
/// those that are equal already, are left alone. Returns what was put in place, against the installation's folder.
/// Throws platform::RuntimeError.
QStringList InstallPrograms(const QString& programFolder, const QString& root);

/// Whether the folder has every program that an installation needs.
bool HoldsPrograms(const QString& programFolder);

}  // namespace setup
