#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <optional>
#include <vector>

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

/// Prints each fault of an installation as it is found, and counts the faults.
class CheckReport {
  public:
    explicit CheckReport(QTextStream& out) : out_(out) {}
    void Add(const QString& fault) {
        ++count_;
        out_ << QStringLiteral("・") << fault << u'\n';
    }
    void Add(const QStringList& faults) {
        for (const QString& fault : faults) Add(fault);
    }
    int Count() const { return count_; }

  private:
    QTextStream& out_;
    int count_ = 0;
};

// Each check adds to `findings`, in plain Japanese, what keeps the user from using the file. `what` is the name of the
// file in the message. None of them throws.

/// True if the file exists and the user may read it.
bool CheckFile(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// Same for a program, which the user must also be able to execute.
void CheckProgram(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// Also opens the file as the programs do, to detect damage. True if it can be read.
bool CheckDatabase(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// For a database that can be read: checks that the user may write it and create files in its folder.
void CheckWritable(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what);
/// Checks the work tables, the template file next to them and its links to them. `own`: the user prints from these
/// files and must be able to write them.
void CheckReportFiles(CheckReport& findings, const UserAccess& user, const QString& workTables, bool own);

/// Reasons why a user cannot start the report host of this machine; empty if there are none.
QStringList HostFaults(const UserAccess& user);
/// Reasons why the report host would ask the user before it opens the templates in this folder; empty if there are
/// none, or if no host of a known version is registered.
QStringList TrustFaults(const UserAccess& user, const QString& reportFolder);

/// Finds hidden work folders that a killed suite-setup left next to an installation, or a killed report host in the
/// folder for temporary files or an output folder of the installation. They may contain staff data, so each fault says
/// how the folder is removed. Only folders that this user can read are found. `root`: folder of the installation.
QStringList LeftoverFaults(const QString& root);

}  // namespace setup
