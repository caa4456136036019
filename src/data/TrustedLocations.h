#pragma once

#include <QString>
#include <optional>

#include "platform/Registry.h"

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
/// missing. For a network folder, network locations are allowed first. `tellUnreadable`: show a message box for each
/// location that cannot be read. `closing` is the status of closing the key of all locations. False, in most cases
/// after a message box, if a key can be neither opened nor created.
bool OpenLocationFor(const QString& locationsKey, const QString& reportFolder, bool tellUnreadable,
                     platform::RegistryKey& location, long& closing);
