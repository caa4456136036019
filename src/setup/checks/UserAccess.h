#pragma once

#include <QString>
#include <optional>
#include <vector>

#include <sys/types.h>

namespace setup {

/// What a user of this machine may do with files, by their modes.
class UserAccess {
  public:
    /// The user of that name; where the machine knows none, and with an empty name, whoever runs this.
    explicit UserAccess(const QString& user);

    /// False where the machine doesn't know the user named.
    bool IsKnown() const { return known_; }
    /// None for a user that the machine doesn't know.
    std::optional<uid_t> Id() const { return known_ ? std::optional(id_) : std::nullopt; }
    bool MayRead(const QString& path) const { return May(path, 4); }
    bool MayWrite(const QString& path) const { return May(path, 2); }
    bool MayMakeFilesIn(const QString& folder) const { return May(folder, 3); }
    bool MayRun(const QString& path) const { return May(path, 5); }
    /// The user's part of the registry.
    QString RegistryFile() const;

  private:
    bool May(const QString& path, unsigned wanted) const;
    bool Has(const QString& path, unsigned wanted) const;

    bool known_ = true, self_ = true;
    uid_t id_ = 0;
    std::vector<gid_t> groups_;
    QString home_;
};

}  // namespace setup
