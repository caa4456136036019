#include "platform/FileRights.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <vector>

namespace platform {
namespace {

constexpr mode_t kModeBits = 07777;
constexpr mode_t kOwnerAndGroupFile = 0660;

FileRights From(const struct stat& found) {
    return {.owner = found.st_uid,
            .group = found.st_gid,
            .mode = found.st_mode & kModeBits,
            .folder = S_ISDIR(found.st_mode)};
}

bool IsFileOrFolder(const struct stat& found) { return S_ISREG(found.st_mode) || S_ISDIR(found.st_mode); }

bool HasSecondName(const struct stat& found) { return S_ISREG(found.st_mode) && found.st_nlink > 1; }

/// chown clears the setgid bit, so chmod must be second. The kernel silently drops that bit if the user is not a member
/// of the group, so the result is verified.
bool SetRightsOfOpen(int entry, unsigned group, unsigned mode) {
    struct stat found = {};
    if (::fstat(entry, &found) != 0 || !IsFileOrFolder(found) || HasSecondName(found)) return false;
    if (found.st_gid != group && ::fchownat(entry, "", static_cast<uid_t>(-1), group, AT_EMPTY_PATH) != 0) return false;
    // fchmod rejects O_PATH descriptors.
    const QByteArray open = "/proc/self/fd/" + QByteArray::number(entry);
    return ::chmod(open.constData(), mode) == 0 && ::fstat(entry, &found) == 0 && (found.st_mode & kModeBits) == mode;
}

std::vector<gid_t> GroupsOfProcess() {
    std::vector<gid_t> groups(static_cast<size_t>(std::max(0, ::getgroups(0, nullptr))));
    groups.resize(static_cast<size_t>(std::max(0, ::getgroups(static_cast<int>(groups.size()), groups.data()))));
    groups.push_back(::getegid());
    return groups;
}

std::vector<gid_t> GroupsOfAccount(const passwd& account) {
    int count = 0;
    ::getgrouplist(account.pw_name, account.pw_gid, nullptr, &count);
    std::vector<gid_t> groups(static_cast<size_t>(count));
    ::getgrouplist(account.pw_name, account.pw_gid, groups.data(), &count);
    return groups;
}

std::vector<gid_t> GroupsOf(uid_t user) {
    if (user == ::geteuid()) return GroupsOfProcess();
    const passwd* entry = ::getpwuid(user);
    return entry == nullptr ? std::vector<gid_t>() : GroupsOfAccount(*entry);
}

}  // namespace

std::optional<FileRights> RightsOf(const QString& path) {
    struct stat found = {};
    if (::lstat(QFile::encodeName(path).constData(), &found) != 0 || !IsFileOrFolder(found)) return std::nullopt;
    return From(found);
}

std::optional<FileRights> RightsOfTarget(const QString& path) {
    struct stat found = {};
    if (::stat(QFile::encodeName(path).constData(), &found) != 0) return std::nullopt;
    return From(found);
}

bool IsGranted(const QString& path, unsigned wanted) {
    static_assert(kMayRead == R_OK && kMayWrite == W_OK && kMayEnter == X_OK);
    return ::access(QFile::encodeName(path).constData(), static_cast<int>(wanted)) == 0;
}

bool MayEnterFolder(const QString& folder) {
    return ::faccessat(AT_FDCWD, QFile::encodeName(folder).constData(), R_OK | X_OK, AT_EACCESS) == 0 ||
           errno == ENOENT;
}

bool SetRights(const QString& path, unsigned group, unsigned mode) {
    // O_PATH: closing a normal descriptor of a database file would release this process's POSIX locks on it.
    const int entry = ::open(QFile::encodeName(path).constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC);
    if (entry < 0) return false;
    const bool done = SetRightsOfOpen(entry, group, mode);
    ::close(entry);
    return done;
}

bool ShareWithFolder(const QString& file, const QString& folder) {
    struct stat found = {};
    if (::stat(QFile::encodeName(folder).constData(), &found) != 0) return false;
    if ((found.st_mode & kSetGroupId) == 0) return true;
    return SetRights(file, found.st_gid, found.st_mode & kOwnerAndGroupFile);
}

std::optional<UserAccount> AccountOf(const QString& userName) {
    const passwd* entry = ::getpwnam(QFile::encodeName(userName).constData());
    if (entry == nullptr) return std::nullopt;
    return UserAccount{
        .id = entry->pw_uid, .home = QFile::decodeName(entry->pw_dir), .groups = GroupsOfAccount(*entry)};
}

unsigned RealUserId() { return ::getuid(); }

unsigned OwnUserId() { return ::geteuid(); }

unsigned OwnGroupId() { return ::getegid(); }

bool MayGiveGroup(unsigned user, unsigned group) {
    if (user == 0) return true;
    const std::vector<gid_t> groups = GroupsOf(user);
    return std::find(groups.begin(), groups.end(), group) != groups.end();
}

std::optional<unsigned> PrimaryGroupOf(unsigned user) {
    const passwd* entry = ::getpwuid(user);
    return entry == nullptr ? std::nullopt : std::optional<unsigned>(entry->pw_gid);
}

QString UserName(unsigned user) {
    const passwd* entry = ::getpwuid(user);
    return entry == nullptr ? QString::number(user) : QString::fromLocal8Bit(entry->pw_name);
}

QString GroupName(unsigned group) {
    const ::group* entry = ::getgrgid(group);
    return entry == nullptr ? QString::number(group) : QString::fromLocal8Bit(entry->gr_name);
}

}  // namespace platform
