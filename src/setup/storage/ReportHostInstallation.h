#pragma once

#include <QString>
#include <optional>

#include "data/ReportHostTrust.h"

namespace setup {

/// File name under which the suite looks for the report host.
inline const QString& kHostProgramName = kReportHostProgram;

/// Folder of the report host in an installation, with trailing separator, since clients concatenate folder and name.
/// The folder name is the host's version.
QString ReportHostFolder(const QString& root);
/// The registry key that names the host of the machine, beginning with HKLM.
QString ReportHostKey();

/// Folder of the registered host, with trailing separator; empty if none is registered.
std::optional<QString> RegisteredHostFolder();

/// Registers the host of an installation for all programs of this machine, replacing the registered one. False if the
/// installation has no host. Throws platform::RuntimeError if the user may not write the machine's registry.
bool RegisterReportHost(const QString& root);

}  // namespace setup
