#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace platform {

// POSIX owners, groups and permissions of files and folders. Users and groups are numeric ids. A "plain file" is a
// regular file; "effective" and "real" refer to the ids of this process.

/// Owner, group and mode of an entry of the file system.
struct FileRights {
    unsigned owner = 0;  ///< user id
    unsigned group = 0;  ///< group id
    unsigned mode = 0;   ///< permission, setuid, setgid and sticky bits (07777)
    bool folder = false;
};

inline constexpr unsigned kSetGroupId = 02000;  ///< setgid on a folder: new entries inherit its group

/// Rights of a plain file or folder; symbolic links are not followed. nullopt for a missing or inaccessible entry, a
/// link, or an entry of another kind.
std::optional<FileRights> RightsOf(const QString& path);

/// Rights of an entry of any kind; symbolic links are followed. nullopt if it is missing or inaccessible.
std::optional<FileRights> RightsOfTarget(const QString& path);

// Bits of `wanted` in IsGranted, as in the last digit of a mode.
inline constexpr unsigned kMayRead = 4;
inline constexpr unsigned kMayWrite = 2;
inline constexpr unsigned kMayEnter = 1;  ///< run a file, use a folder in a path

/// True if the real user and group have all of the rights `wanted` on the path.
bool IsGranted(const QString& path, unsigned wanted);
/// True if the effective user and group may list the folder and open files in it, or if the folder does not exist.
bool MayEnterFolder(const QString& folder);

/// Sets group and mode of a plain file or folder. False on a system error, if the system drops a bit of the mode, and
/// for a symbolic link or a file with further hard links: another user may have created either to get the rights of a
/// different file changed.
bool SetRights(const QString& path, unsigned group, unsigned mode);

/// If `folder` has the setgid bit, sets the group of `file` to the folder's and copies the folder's owner and group
/// read/write bits, regardless of the umask. Otherwise no change and true. False on a system error.
bool ShareWithFolder(const QString& file, const QString& folder);

/// A user account of this machine.
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
/// True if the user may give own files to this group: as a member of it, or as the superuser.
bool MayGiveGroup(unsigned user, unsigned group);
/// The user's primary group; nullopt for an id without an account.
std::optional<unsigned> PrimaryGroupOf(unsigned user);

/// Name of a user or group; the number as text if it has no name.
QString UserName(unsigned user);
QString GroupName(unsigned group);

/// Makes a folder private to the effective user: sets mode 0700 on it and on the user's folders inside, at any depth,
/// and checks that it is a real folder of the user whose content is folders and plain files without further hard links,
/// of the user or of root. Otherwise a link of another user could redirect this program's writes. No effect on a
/// missing folder. Throws RuntimeError 70 with one Japanese line for each problem; nothing is removed.
void ClaimPrivateFolder(const QString& folder);

/// The same checks without any change; one Japanese sentence for each problem. `owner` is the id of the folder's user;
/// nullopt (no such user on this machine) skips the checks of ownership.
QStringList PrivateFolderFaults(const QString& folder, std::optional<unsigned> owner);

}  // namespace platform
