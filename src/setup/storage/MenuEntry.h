#pragma once

#include <QByteArray>
#include <QString>

namespace setup {

/// Desktop entry (UTF-8) that starts the inquiry of the installation.
QByteArray MenuEntry(const QString& root);

/// Writes the installation's entry into the menu: for all users of the machine when the administrator does it,
/// otherwise for this user. Written again it replaces itself; each installation has an entry of its own. Returns the
/// file's path. Throws platform::RuntimeError.
QString WriteMenuEntry(const QString& root);

}  // namespace setup
