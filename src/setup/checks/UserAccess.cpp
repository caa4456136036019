// The class UserAccess of Checks.h.
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>

#include "platform/registry/FileRegistry.h"
#include "setup/checks/Checks.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr unsigned kThrough = 1;  // search permission, needed on every parent folder

}  // namespace

UserAccess::UserAccess(const QString& user) : id_(getuid()) {
    const QByteArray name = QFile::encodeName(user);
    const passwd* entry = user.isEmpty() ? nullptr : getpwnam(name.constData());
    known_ = user.isEmpty() || entry != nullptr;
    if (entry == nullptr) return;
    self_ = entry->pw_uid == id_;
    id_ = entry->pw_uid;
    home_ = QFile::decodeName(entry->pw_dir);
    int count = 0;
    getgrouplist(name.constData(), entry->pw_gid, nullptr, &count);
    groups_.resize(static_cast<size_t>(count));
    getgrouplist(name.constData(), entry->pw_gid, groups_.data(), &count);
}

bool UserAccess::Has(const QString& path, unsigned wanted) const {
    struct stat state = {};
    if (::stat(QFile::encodeName(path).constData(), &state) != 0) return false;
    if (id_ == 0) return true;
    unsigned shift = 0;
    if (state.st_uid == id_)
        shift = 6;
    else if (std::find(groups_.begin(), groups_.end(), state.st_gid) != groups_.end())
        shift = 3;
    return ((state.st_mode >> shift) & wanted) == wanted;
}

bool UserAccess::May(const QString& path, unsigned wanted) const {
    if (self_) return ::access(QFile::encodeName(path).constData(), static_cast<int>(wanted)) == 0;
    for (qsizetype at = path.indexOf(u'/', 1); at > 0; at = path.indexOf(u'/', at + 1))
        if (!Has(path.first(at), kThrough)) return false;
    return Has(path, wanted);
}

QString UserAccess::RegistryFile() const {
    if (self_ || !qEnvironmentVariableIsEmpty("MEIBO_USER_REGISTRY")) return platform::UserRegistryFile();
    return home_ + u"/.config/youin-meibo/registry"_s;
}

}  // namespace setup
