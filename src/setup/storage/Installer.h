#pragma once

#include <QString>

#include "globals/EnvironmentDefinition.h"
#include "platform/RuntimeError.h"

namespace setup {

struct InstallationRequest {
    QString folder;         ///< where the installation shall lie; absolute, or against the working folder
    QString programFolder;  ///< where the built programs lie; empty: the installation gets none
    int staff = 300;        ///< 1 to 99,999
    quint64 seed = 1;
    FileKind kind = kAccdb;
    int installKind = 0;
    bool askPins = false;  ///< the company asks for PINs, and its first few people have rights that differ
    bool replace = false;
};

/// Makes an installation with all tables and the sample. It is built beside its place and moved there whole, so a
/// failure leaves nothing behind that looks like an installation, and with `replace` keeps the old one. Throws
/// UsageError before anything is touched, otherwise platform::RuntimeError. Returns the absolute path of the
/// installation.
QString MakeInstallation(const InstallationRequest& request);

/// Of the hidden folder beside its place in which an installation is built. A killed run leaves it; the next one in the
/// same folder removes it.
inline const QString kWorkFolderPrefix = QStringLiteral(".suite-setup-");

/// True when the folder holds an installation, or what is left of one.
bool HoldsInstallation(const QString& folder);

/// The configuration file in a conf folder, .accdb before .mdb; empty without one.
QString ConfigurationFile(const QString& confFolder);

}  // namespace setup
