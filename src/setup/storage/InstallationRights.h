#pragma once

#include <QString>
#include <QStringList>

namespace setup {

// An installation belongs to one group. Members read everything, run the programs, and write the files that the
// programs write; other users have no access, not even to take a lock. Programs, manual and the root folder are
// writable by the owner only: a member who could replace a program would run code as every other member.

/// The group for an installation to be made at `root`. If there is an installation already, see GroupOf. Otherwise the
/// group of a prepared folder at `root` with the setgid bit, or of the folder around it; this user's primary group if
/// that can't be assigned. Throws UsageError instead if the folder has the setgid bit.
unsigned GroupForNew(const QString& root);
/// The group of an existing installation: the group of its conf folder if that differs from the owner's primary group
/// or if the owner may not assign the group of the folder around the installation; otherwise the latter.
unsigned GroupOf(const QString& root);

/// Sets group and mode of all entries of a new installation, regardless of the umask. Throws platform::RuntimeError.
void SetInstallationRights(const QString& root, unsigned group);

/// Result of a correction: one line per entry, with its path and the change.
struct RightsChanges {
    QStringList done;
    QStringList refused;  ///< entries that this user does not own and could not change
};

/// One line for each entry of an installation whose group or mode is wrong.
QStringList WrongRights(const QString& root);
/// Corrects these entries as far as this user may.
RightsChanges CorrectRights(const QString& root);

}  // namespace setup
