#pragma once

#include <QString>
#include <QStringList>

namespace setup {

/// Hidden folders that a killed suite-setup left beside an installation, or a killed report host in a folder that the
/// installation prints to, with what removes them; they may hold staff data. Only those that this user can look into.
QStringList LeftoverFaults(const QString& root);

}  // namespace setup
