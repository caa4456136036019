#pragma once

#include <QString>
#include <optional>

#include "platform/Registry.h"

// Settings of this machine's report host that let it open the template file without a security prompt. They are written
// to the user's part of the registry, as a trusted location: a key with the path of a folder. No procedure throws; some
// failures show a message box. `hostFolder` is the host's folder and ends with a separator.

/// Key below the machine's root where the host is registered; its value "Path" is the host's folder.
inline const QString kReportHostKey =
    QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE");
/// The host's program file in that folder.
inline const QString kReportHostProgram = QStringLiteral("MSACCESS.EXE");

/// Finds the host in the machine's registry, stores its folder in DiscoveredHostFolder and makes the settings that its
/// version requires for UserReportFolder. False if no host is registered or its version is unknown; otherwise the
/// result of the procedure below that makes the settings.
bool PrepareReportHost();

/// Registers the host as the program for template files (.mdb). True if the key of the associations could be opened.
bool SetHostAssociation(const QString& hostFolder);

/// SetHostAssociation, then sets the security level of the one version that has such a setting instead of trusted
/// locations. True if the level's key could be opened or created, otherwise the result of SetHostAssociation.
bool SetOldSecurityLevel(const QString& hostFolder);

/// SetHostAssociation, then makes `reportFolder` (without a trailing separator) a trusted location. `version` is the
/// version's key, e.g. "12.0" (TrustVersionOf). True if the location's key could be opened, even if its values could
/// not be written; otherwise the result of SetHostAssociation.
bool TrustReportFolder(const QString& hostFolder, const QString& reportFolder, const QString& version);

/// The key of a version's trusted locations in the user's part.
QString TrustedLocationsKey(const QString& version);
/// True if the folder's name contains a known version.
bool IsKnownHost(const QString& hostFolder);
/// The version key whose trusted locations apply to the host in this folder; empty if it has none or is unknown.
QString TrustVersionOf(const QString& hostFolder);

/// Reads a text value of an open key; nullopt if it is missing, is not text or has more than 255 characters.
std::optional<QString> ReadRegistryText(const platform::RegistryKey& key, const QString& name);

/// Names of a version's trusted locations, from which the location of a folder is found or a new name is formed. Names
/// are compared as text: Location9 is greater than Location10.
struct LocationNames {
    QString smallest, largest;  ///< empty if there are no locations
    QString found;              ///< the last one whose path contains folder and separator anywhere, ignoring case
};

/// Name of a new location: "Location" and the number of `smallest` minus 1, or of `largest` plus 1 if that of
/// `smallest` is 0. A resulting 0 is omitted: before Location1 comes "Location". "Location0" if there are no locations.
QString NewLocationName(const LocationNames& names);

/// Opens the trusted location that contains the folder, or creates one; creates the key of all locations if it is
/// missing. For a network folder, network locations are allowed first. `location` is the opened key; the caller closes
/// it. `showUnreadable`: show a message box for each location that cannot be read. `closing` becomes the status of
/// closing the key of all locations. False if a key can be neither opened nor created; only for a new location after a
/// message box.
bool OpenLocationFor(const QString& locationsKey, const QString& reportFolder, bool showUnreadable,
                     platform::RegistryKey& location, long& closing);
