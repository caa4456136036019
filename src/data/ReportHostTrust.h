#pragma once

#include <QString>

// Settings of this machine's report host that let it open the template file without a security prompt. They are written
// to the user's part of the registry. A failure does not stop the caller; relevant ones show a message box.

/// Finds the host in the machine's registry, stores its folder in DiscoveredHostFolder and makes the settings that its
/// version requires for UserReportFolder. True if they were made, i.e. a known host is installed.
bool PrepareReportHost();

/// Registers the host as the program for template files. `hostFolder` ends with a separator. True if the key of the
/// associations could be opened.
bool SetHostAssociation(const QString& hostFolder);

/// Sets the association, and the security level of the one version that has it. True if the level's key could be opened
/// or created, otherwise the association's result.
bool SetOldSecurityLevel(const QString& hostFolder);

/// Sets the association, and makes `reportFolder` (without a trailing separator) a trusted location. `version` is the
/// version's key, e.g. "12.0". True if the location's key could be opened, even if its values could not be written;
/// otherwise the association's result.
bool TrustReportFolder(const QString& hostFolder, const QString& reportFolder, const QString& version);

/// The key of a version's trusted locations in the user's part.
QString TrustedLocationsKey(const QString& version);
/// True if the folder's name contains a known version.
bool IsKnownHost(const QString& hostFolder);
/// The version key whose trusted locations apply to the host in this folder; empty if it has none or is unknown.
QString TrustVersionOf(const QString& hostFolder);
