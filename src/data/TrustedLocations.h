#pragma once

#include <QString>
#include <optional>

#include "platform/Registry.h"

/// A text value, read into a buffer of 256 blanks as everybody reads texts from the registry; nothing where it is
/// missing, is no text or does not fit.
std::optional<QString> ReadRegistryText(const platform::RegistryKey& key, const QString& name);

/// The trusted locations of one version, as far as their names and paths decide where a folder goes. Names are compared
/// as texts: Location9 stands above Location10.
struct LocationNames {
    QString smallest, largest;  ///< empty without any location
    QString found;              ///< the last one whose path holds the folder with its separator, wherever in the text
};

/// Name of a new location: one below the smallest number or, where that is 0, one above the largest. A number 0 is not
/// written, so below Location1 comes "Location".
QString NewLocationName(const LocationNames& names);

/// Opens the location that holds the folder, otherwise makes a new one, below the key of all locations, which is made
/// where it is missing. A folder on a network has network locations allowed first. `tellUnreadable`: each location that
/// can't be read is told in a message box. `closing` is the status of closing the key of all locations. False, with the
/// message where there is one, when a key can be neither opened nor made.
bool OpenLocationFor(const QString& locationsKey, const QString& reportFolder, bool tellUnreadable,
                     platform::RegistryKey& location, long& closing);
