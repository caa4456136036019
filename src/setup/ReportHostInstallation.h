#pragma once

#include <QString>

namespace setup {

/// Folder of the report host in an installation, with its closing separator, since whoever starts the host puts nothing
/// between folder and name. The name tells the host's version.
QString ReportHostFolder(const QString& root);
/// The key under which the machine's registry names it, from HKLM on.
QString ReportHostKey();

/// Copies the host among the built programs into an installation under the name by which the suite knows it. Does
/// nothing where it was not built. Throws platform::RuntimeError.
void InstallReportHost(const QString& programFolder, const QString& root);

/// Tells all programs of this machine where the host lies; the installation registered last counts for all. False where
/// the installation has no host. Throws platform::RuntimeError where the user may not write the machine's registry.
bool RegisterReportHost(const QString& root);

}  // namespace setup
