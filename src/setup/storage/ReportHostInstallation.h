#pragma once

#include <QString>
#include <optional>

namespace setup {

/// File name by which the suite knows the report host.
inline const QString kHostProgramName = QStringLiteral("MSACCESS.EXE");

/// Folder of the report host in an installation, with its closing separator, since whoever starts the host puts nothing
/// between folder and name. The name tells the host's version.
QString ReportHostFolder(const QString& root);
/// The key under which the machine's registry names it, from HKLM on.
QString ReportHostKey();

/// Folder of the registered host, with its closing separator; nothing where the machine has none.
std::optional<QString> RegisteredHostFolder();

/// Tells all programs of this machine where the host lies; the installation registered last counts for all. False where
/// the installation has no host. Throws platform::RuntimeError where the user may not write the machine's registry.
bool RegisterReportHost(const QString& root);

}  // namespace setup
