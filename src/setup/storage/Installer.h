#pragma once

#include <QString>

#include "globals/EnvironmentDefinition.h"
#include "platform/RuntimeError.h"

namespace setup {

struct InstallationRequest {
    QString folder;         ///< target folder, absolute or relative to the working directory
    QString programFolder;  ///< folder of the built programs; empty: no programs are installed
    int staff = 300;        ///< 1 to 99,999
    quint64 seed = 1;
    FileKind kind = FileKind::Accdb;
    int installKind = 0;
    bool askPins = false;  ///< the company requires PINs, and its first few people have different rights
    bool replace = false;
};

/// Creates an installation with all tables and the sample. It is built in a work folder next to the target and then
/// renamed, so that a failure leaves no incomplete installation and, with `replace`, keeps the old one. Throws
/// UsageError before anything is changed, otherwise platform::RuntimeError. Returns the absolute path of the
/// installation.
QString MakeInstallation(const InstallationRequest& request);

/// Prefix of the hidden work folder. A killed run leaves it there; the next run in the same parent folder removes it.
inline const QString kWorkFolderPrefix = QStringLiteral(".suite-setup-");

/// True if the folder contains an installation, or parts of one.
bool HoldsInstallation(const QString& folder);

/// The configuration file in a conf folder; .accdb takes precedence over .mdb; empty if there is none.
QString ConfigurationFile(const QString& confFolder);

}  // namespace setup
