#pragma once

#include <QString>
#include <optional>

namespace platform {

/// Owner, group and mode of a plain file or folder, in the system's numbers.
struct FileRights {
    unsigned owner = 0;
    unsigned group = 0;
    unsigned mode = 0;  ///< permission, setuid, setgid and sticky bits (07777)
    bool folder = false;
};

inline constexpr unsigned kSetGroupId = 02000;  ///< of a folder: what is made in it takes over its group

/// Rights of the entry itself: a link is not followed. Nothing for a missing entry, a link, and anything that is
/// neither file nor folder.
std::optional<FileRights> RightsOf(const QString& path);

/// Gives a plain file or folder this group and mode. False if the system refuses, and for a link or a file with a
/// second name: either may have been made by another user to have a file elsewhere opened up.
bool SetRights(const QString& path, unsigned group, unsigned mode);

/// In a folder with the setgid bit, gives a file the folder's group and its read and write bits for owner and group,
/// whatever the umask. Elsewhere the file stays as it is. False if the system refuses.
bool ShareWithFolder(const QString& file, const QString& folder);

/// User and default group of what this process makes.
unsigned OwnUserId();
unsigned OwnGroupId();
/// Whether the user may give own files this group: as a member or as the superuser.
bool MayGiveGroup(unsigned user, unsigned group);
/// The group that files of the user get by default; nothing for a user without a name.
std::optional<unsigned> PrimaryGroupOf(unsigned user);

/// Name of a user or group, its number if it has none.
QString UserName(unsigned user);
QString GroupName(unsigned group);

}  // namespace platform
