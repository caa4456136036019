#pragma once

#include <QString>
#include <QStringList>

#include "setup/checks/UserAccess.h"

namespace setup {

/// Reasons why a user cannot start the report host of this machine; empty if there are none.
QStringList HostFaults(const UserAccess& user);
/// Reasons why the report host would ask before it opens the templates in this folder.
QStringList TrustFaults(const UserAccess& user, const QString& reportFolder);

}  // namespace setup
