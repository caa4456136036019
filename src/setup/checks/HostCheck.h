#pragma once

#include <QString>
#include <QStringList>

#include "setup/checks/UserAccess.h"

namespace setup {

/// What keeps the report host of this machine from being started by a user; empty when nothing does.
QStringList HostFaults(const UserAccess& user);
/// What keeps it from opening the forms in this folder without asking.
QStringList TrustFaults(const UserAccess& user, const QString& reportFolder);

}  // namespace setup
