#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace setup {

/// Access rights of a user of this machine to files, computed from owner, group and mode.
class UserAccess {
  public:
    /// The named user; the current user if the name is empty or unknown.
    explicit UserAccess(const QString& user);

    /// False if this machine has no user of that name.
    bool IsKnown() const { return known_; }
    /// Empty for an unknown user.
    std::optional<unsigned> Id() const { return known_ ? std::optional(id_) : std::nullopt; }
    bool MayRead(const QString& path) const { return May(path, 4); }
    bool MayWrite(const QString& path) const { return May(path, 2); }
    bool MayMakeFilesIn(const QString& folder) const { return May(folder, 3); }
    bool MayRun(const QString& path) const { return May(path, 5); }
    /// The user's registry file (HKCU).
    QString RegistryFile() const;

  private:
    bool May(const QString& path, unsigned wanted) const;
    bool Has(const QString& path, unsigned wanted) const;

    bool known_ = true, self_ = true;
    unsigned id_ = 0;
    std::vector<unsigned> groups_;
    QString home_;
};

}  // namespace setup
