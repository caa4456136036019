#pragma once

#include <QString>
#include <QStringList>

namespace setup {

/// Finds hidden work folders that a killed suite-setup left next to an installation, or a killed report host in an
/// output folder of the installation. They may contain staff data, so each fault names the command that removes the
/// folder. Only folders that this user can read are found.
QStringList LeftoverFaults(const QString& root);

}  // namespace setup
