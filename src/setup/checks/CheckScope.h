#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

#include "data/Catalogue.h"
#include "database/Database.h"
#include "globals/EnvironmentDefinition.h"

namespace setup {

/// Access rights of a user of this machine to files: those of the current user as the system grants them, those of
/// another user computed from owner, group and mode of the file and the folders above it.
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

/// What the checks have in common: the installation, and its databases as far as they could be opened. Whatever could
/// not be read has its default, and is reported by the check of that database.
struct CheckScope {
    QString root;
    UserAccess user;        ///< whose rights count for the common files
    QString configuration;  ///< path of the common configuration, whether or not it exists
    bool configurationOpens = false;
    std::optional<GeneralDatabaseDefinition> definition{};
    int installKind = 0;
    /// The general database, opened for reading as the programs open it; null if it can't be opened.
    std::shared_ptr<database::Connection> general{};
    QString generalError{};  ///< why it can't be opened
    /// The other installation whose general database the definition row names; empty if there is none.
    QString otherInstallation{};

    bool HasPrivateCopies() const { return installKind == 1; }
    bool IsServer() const { return definition && (definition->db == u"S" || definition->db == u"O"); }
    /// The general database in messages, with its file or server.
    QString GeneralName() const;
    /// Command line that repairs rows of the general database; `options` with a leading blank.
    QString RepairCommand(const QString& options = {}) const;
    /// Rows of a SELECT on the general database as texts, a Null as null QString; nullopt if the database is not open
    /// or the statement names a missing table or column. Throws database::DatabaseError for any other failure.
    std::optional<QList<QStringList>> Rows(const QString& sql) const;
};

/// Reads the configuration and opens the general database. Throws nothing.
CheckScope ScopeOf(const QString& root, const QString& user);

}  // namespace setup
