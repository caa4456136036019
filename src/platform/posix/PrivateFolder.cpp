// Part of FileRights.h: ClaimPrivateFolder and PrivateFolderFaults.

#include "platform/FileRights.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <cerrno>

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

constexpr mode_t kOwnerOnly = 0700;
constexpr long kNotAllowed = 70;

QString NameOf(uid_t user) {
    const passwd* entry = ::getpwuid(user);
    return entry == nullptr ? QString::number(user) : QString::fromLocal8Bit(entry->pw_name);
}

/// Sets mode 0700. Uses a descriptor opened with O_NOFOLLOW, since the folder may have been replaced by a link
/// meanwhile.
bool CloseToOthers(const QString& folder, uid_t owner) {
    const int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    const int descriptor = ::open(QFile::encodeName(folder).constData(), flags);
    if (descriptor < 0) return false;
    struct stat state = {};
    const bool own = ::fstat(descriptor, &state) == 0 && state.st_uid == owner;
    const bool closed = own && ((state.st_mode & ALLPERMS) == kOwnerOnly || ::fchmod(descriptor, kOwnerOnly) == 0);
    ::close(descriptor);
    return closed;
}

class Inspection {
  public:
    Inspection(std::optional<uid_t> owner, bool claims) : owner_(owner), claims_(claims) {}

    /// The folder itself must belong to `owner`; its content may also belong to root, for example after a restore.
    QStringList Faults(const QString& folder) {
        struct stat state = {};
        if (::lstat(QFile::encodeName(folder).constData(), &state) == 0) Inspect(folder, state, false);
        return faults_;
    }

  private:
    void Inspect(const QString& path, const struct stat& state, bool administratorMayOwn) {
        const bool byAdministrator = administratorMayOwn && state.st_uid == 0;
        if (S_ISLNK(state.st_mode))
            faults_.append(u"%1 はリンクです。"_s.arg(path));
        else if (!S_ISDIR(state.st_mode) && !S_ISREG(state.st_mode))
            faults_.append(u"%1 はファイルでもフォルダでもありません。"_s.arg(path));
        else if (owner_ && state.st_uid != *owner_ && !byAdministrator)
            faults_.append(u"%1 は利用者 %2 のものです。"_s.arg(path, NameOf(state.st_uid)));
        else if (S_ISDIR(state.st_mode))
            InspectFolder(path, state.st_uid == owner_);
        else if (!administratorMayOwn)
            faults_.append(u"%1 はフォルダではありません。"_s.arg(path));
        else if (state.st_nlink > 1)
            faults_.append(u"%1 には別の名前 (ハードリンク) があります。"_s.arg(path));
    }

    /// Sets the mode first, so that nothing can be added after the check.
    void InspectFolder(const QString& folder, bool own) {
        if (claims_ && own && !CloseToOthers(folder, *owner_))
            faults_.append(u"フォルダ %1 の権限を設定できません。"_s.arg(folder));
        const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        for (const QString& name : QDir(folder).entryList(everything, QDir::Name)) {
            const QString path = folder + u'/' + name;
            struct stat state = {};
            if (::lstat(QFile::encodeName(path).constData(), &state) == 0)
                Inspect(path, state, true);
            else if (errno != ENOENT)
                faults_.append(u"%1 を調べられません。"_s.arg(path));
        }
    }

    std::optional<uid_t> owner_;
    bool claims_;
    QStringList faults_;
};

}  // namespace

void ClaimPrivateFolder(const QString& folder) {
    const QStringList faults = Inspection(::geteuid(), true).Faults(folder);
    if (!faults.isEmpty()) throw RuntimeError(kNotAllowed, faults.join(u'\n'));
}

QStringList PrivateFolderFaults(const QString& folder, std::optional<unsigned> owner) {
    return Inspection(owner, false).Faults(folder);
}

}  // namespace platform
