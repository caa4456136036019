// Part of CheckScope.h: the class UserAccess.
#include <algorithm>

#include "platform/FileRights.h"
#include "platform/registry/FileRegistry.h"
#include "setup/checks/CheckScope.h"

using namespace Qt::StringLiterals;

namespace setup {

UserAccess::UserAccess(const QString& user) : id_(platform::RealUserId()) {
    const auto account = user.isEmpty() ? std::nullopt : platform::AccountOf(user);
    known_ = user.isEmpty() || account;
    if (!account) return;
    self_ = account->id == id_;
    id_ = account->id;
    home_ = account->home;
    groups_ = account->groups;
}

bool UserAccess::Has(const QString& path, unsigned wanted) const {
    const auto rights = platform::RightsOfTarget(path);
    if (!rights) return false;
    if (id_ == 0) return true;
    unsigned shift = 0;
    if (rights->owner == id_)
        shift = 6;
    else if (std::find(groups_.begin(), groups_.end(), rights->group) != groups_.end())
        shift = 3;
    return ((rights->mode >> shift) & wanted) == wanted;
}

bool UserAccess::May(const QString& path, unsigned wanted) const {
    if (self_) return platform::IsGranted(path, wanted);
    for (qsizetype at = path.indexOf(u'/', 1); at > 0; at = path.indexOf(u'/', at + 1))
        if (!Has(path.first(at), platform::kMayEnter)) return false;
    return Has(path, wanted);
}

QString UserAccess::RegistryFile() const {
    if (self_ || !qEnvironmentVariableIsEmpty("MEIBO_USER_REGISTRY")) return platform::UserRegistryFile();
    return home_ + u"/.config/youin-meibo/registry"_s;
}

}  // namespace setup
