#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace platform {

/// Owner, group and mode of a plain file or folder, as numeric ids and st_mode bits.
struct FileRights {
    unsigned owner = 0;
    unsigned group = 0;
    unsigned mode = 0;  ///< permission, setuid, setgid and sticky bits (07777)
    bool folder = false;
};

inline constexpr unsigned kSetGroupId = 02000;  ///< setgid on a folder: new entries inherit its group

/// Rights of the entry itself; symbolic links are not followed. nullopt for a missing entry, a link, or anything that
/// is neither file nor folder.
std::optional<FileRights> RightsOf(const QString& path);

/// The same for what the path leads to, of any kind; symbolic links are followed. nullopt if there is nothing.
std::optional<FileRights> RightsOfTarget(const QString& path);

// Bits of `wanted` below, as in the last digit of a mode.
inline constexpr unsigned kMayRead = 4;
inline constexpr unsigned kMayWrite = 2;
inline constexpr unsigned kMayEnter = 1;  ///< run a file, use a folder in a path

/// True if the system grants this process all of `wanted` on the path. For its real user and group id.
bool IsGranted(const QString& path, unsigned wanted);
/// True if this process may list and use the folder (effective ids), or if the folder does not exist.
bool MayEnterFolder(const QString& folder);

/// Sets group and mode of a plain file or folder. False on a system error, and for a symbolic link or a file with
/// further hard links: another user may have created either to get the rights of a different file changed.
bool SetRights(const QString& path, unsigned group, unsigned mode);

/// If `folder` has the setgid bit, sets the group of `file` to the folder's and copies the folder's owner and group
/// read/write bits, regardless of the umask. Otherwise no change and true. False on a system error.
bool ShareWithFolder(const QString& file, const QString& folder);

/// A user of this machine.
struct UserAccount {
    unsigned id = 0;
    QString home;                  ///< absolute path
    std::vector<unsigned> groups;  ///< ids, the primary group included
};
/// nullopt if there is no user of that name.
std::optional<UserAccount> AccountOf(const QString& userName);

/// Real user id of this process.
unsigned RealUserId();
/// Effective user and group id of this process.
unsigned OwnUserId();
unsigned OwnGroupId();
/// Whether the user may chgrp own files to this group: a member, or the superuser.
bool MayGiveGroup(unsigned user, unsigned group);
/// The user's primary group; nullopt for a uid without a passwd entry.
std::optional<unsigned> PrimaryGroupOf(unsigned user);

/// Name of a user or group; the number as text if it has no name.
QString UserName(unsigned user);
QString GroupName(unsigned group);

/// Makes a folder safe for the current user. Sets mode 0700 on it and on own folders inside, then checks that it is a
/// real folder owned by the user and contains only folders and plain files without further hard links, of the user
/// or of root. Another user's link in it could redirect our writes. A missing folder is fine. Throws RuntimeError with
/// one line for each problem; nothing is opened or removed.
void ClaimPrivateFolder(const QString& folder);

/// The same checks without any change; one sentence for each problem. `owner` is the id of the folder's user;
/// nullopt (no such user on this machine) skips the checks of ownership.
QStringList PrivateFolderFaults(const QString& folder, std::optional<unsigned> owner);

}  // namespace platform
