#pragma once

#include <QString>

// What the report host of this machine needs, so that it opens the forms file without asking anybody. All of it is
// written to the user's part of the registry. No failure stops the caller; those that the user should know of are shown
// in message boxes.

/// Finds the host by the machine's registry (its folder is kept in DiscoveredHostFolder) and makes the settings that
/// its version needs, for UserReportFolder. True when they were made, so also: a known host is there.
bool PrepareReportHost();

/// Makes the host the program for forms files. `hostFolder` ends with its separator. True when the associations could
/// be opened.
bool SetHostAssociation(const QString& hostFolder);

/// Association, and the security level of the one version that has a level. True when the level's key could be opened
/// or made, otherwise the association's result.
bool SetOldSecurityLevel(const QString& hostFolder);

/// Association, and a trusted location for `reportFolder` (without closing separator). `version` is the name of the
/// version's key, "12.0". True when the location's key could be opened; whether its values could be written goes
/// unnoticed. Otherwise the association's result.
bool TrustReportFolder(const QString& hostFolder, const QString& reportFolder, const QString& version);

/// The key of all trusted locations of a version, in the user's part.
QString TrustedLocationsKey(const QString& version);
/// True when the folder bears the word of a version.
bool IsKnownHost(const QString& hostFolder);
/// Version of the host in this folder by whose locations it trusts; empty where it knows no locations, or is unknown.
QString TrustVersionOf(const QString& hostFolder);
