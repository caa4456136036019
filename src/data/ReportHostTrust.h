#pragma once

#include <QString>
#include <optional>

#include "platform/Registry.h"

// Settings of this machine's report host that let it open the template file without a security prompt. They are written
// to the user's part of the registry. A failure does not stop the caller; relevant ones show a message box.

/// Key below the machine's root where the host is registered: "Path" is its folder ending with a separator.
inline const QString kReportHostKey =
    QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE");
inline const QString kReportHostProgram = QStringLiteral("MSACCESS.EXE");

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

/// Reads a text value with a buffer of 256 characters; nullopt if it is missing, is not text or does not fit.
std::optional<QString> ReadRegistryText(const platform::RegistryKey& key, const QString& name);

/// Names of a version's trusted locations, as needed to find or name the location of a folder. Names are compared as
/// text: Location9 is greater than Location10.
struct LocationNames {
    QString smallest, largest;  ///< empty if there are no locations
    QString found;              ///< the last one whose path contains the folder and a separator anywhere
};

/// Name of a new location: the smallest number minus 1 or, if that is 0, the largest plus 1. The number 0 is omitted,
/// so Location1 is preceded by "Location".
QString NewLocationName(const LocationNames& names);

/// Opens the trusted location that contains the folder, or creates one; creates the key of all locations if it is
/// missing. For a network folder, network locations are allowed first. `showUnreadable`: show a message box for each
/// location that cannot be read. `closing` is the status of closing the key of all locations. False, in most cases
/// after a message box, if a key can be neither opened nor created.
bool OpenLocationFor(const QString& locationsKey, const QString& reportFolder, bool showUnreadable,
                     platform::RegistryKey& location, long& closing);
