#pragma once

#include <QString>
#include <QStringList>

namespace setup {

// An installation belongs to one group. Its members read everything, run the programs, and write what the programs
// write; other users reach nothing, not even to place a lock. Programs, manual and the folder itself are written by
// their owner alone, since a member who could replace a program would run it as every other member.

/// The group of an installation, or of one that is made at this place: of an installation whose configuration has
/// another group than its owner's default the one it has, of a prepared folder with the setgid bit that folder's,
/// otherwise that of the folder around it. Throws UsageError if `root` is to be made in a folder whose group this user
/// may not give.
unsigned GroupForNew(const QString& root);
/// The same for an installation that exists. Without the right to give the group of the folder around it, an owner's
/// installation stays with the group it has.
unsigned GroupOf(const QString& root);

/// Gives all parts of a new installation the group and their modes, whatever the umask. Throws platform::RuntimeError.
void SetInstallationRights(const QString& root, unsigned group);

/// Result of a correction: a line for each entry, with its path and what was or would be changed.
struct RightsChanges {
    QStringList done;
    QStringList refused;  ///< entries of other owners
};

/// Entries of an installation whose group or mode differs from what it should be; a line for each.
QStringList WrongRights(const QString& root);
/// Corrects them.
RightsChanges CorrectRights(const QString& root);

}  // namespace setup
