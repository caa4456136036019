#pragma once

#include <QByteArray>
#include <QString>

namespace setup {

/// Content (UTF-8) of a desktop entry that starts the inquiry of the installation.
QByteArray MenuEntry(const QString& root);

/// Writes the installation's desktop entry: for all users of the machine if run by the administrator, otherwise for
/// this user. An existing entry of the installation is replaced; each installation has a separate one. Returns the
/// file's path. Throws platform::RuntimeError.
QString WriteMenuEntry(const QString& root);

}  // namespace setup
