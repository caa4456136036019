#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

#include "globals/EnvironmentDefinition.h"
#include "platform/RuntimeError.h"

namespace setup {

/// What MakeInstallation creates.
struct InstallationRequest {
    QString folder;         ///< target folder, absolute or relative to the working directory
    QString programFolder;  ///< folder of the built programs; empty: no programs are installed
    int staff = 300;        ///< 1 to 99,999
    quint64 seed = 1;
    FileKind kind = FileKind::Accdb;
    int installKind = 0;   ///< 0: all users share conf and report; 1: each user has private copies
    bool askPins = false;  ///< the company requires PINs, and its first few people have different rights
    bool replace = false;  ///< an existing installation is replaced, with its data; otherwise it is an error
};

/// Creates an installation with all tables and the sample. It is built in a work folder next to the target and then
/// renamed, so that a failure leaves no incomplete installation and, with `replace`, keeps the old one. Throws
/// UsageError before anything is changed, otherwise platform::RuntimeError. Returns the absolute path of the
/// installation.
QString MakeInstallation(const InstallationRequest& request);

/// Prefix of the hidden work folder. A killed run leaves it there; the next run in the same parent folder removes it.
inline const QString kWorkFolderPrefix = QStringLiteral(".suite-setup-");

/// Installs the programs of a folder, the report host in every version folder below `host` of the installation. A
/// running program is not affected; the next start uses the new one. Programs that the folder lacks, and identical
/// ones, are skipped; so are all if `programFolder` is empty. Returns the paths of the copied files, relative to the
/// installation. Throws platform::RuntimeError.
QStringList InstallPrograms(const QString& programFolder, const QString& root);

/// True if the folder contains every program that an installation needs.
bool HoldsPrograms(const QString& programFolder);

/// Folder of the report host in an installation, with trailing separator, since clients concatenate folder and name.
/// The folder name is the host's version.
QString ReportHostFolder(const QString& root);
/// The registry key that names the host of the machine, beginning with HKLM.
QString ReportHostKey();

/// Folder of the registered host, with trailing separator; empty if none is registered.
std::optional<QString> RegisteredHostFolder();

/// Registers the host of an installation for all programs of this machine, replacing the registered one. False if the
/// installation has no host. Throws platform::RuntimeError if the user may not write the machine's registry.
bool RegisterReportHost(const QString& root);

/// Content (UTF-8) of a desktop entry that starts the inquiry of the installation.
QByteArray MenuEntry(const QString& root);

/// Writes the installation's desktop entry: for all users of the machine if run by the administrator, otherwise for
/// this user. An existing entry of the installation is replaced; each installation has a separate one. Returns the
/// file's path. Throws platform::RuntimeError.
QString WriteMenuEntry(const QString& root);

}  // namespace setup
