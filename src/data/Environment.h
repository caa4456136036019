#pragma once

#include <QString>

/// Sets ScreenSize to the primary screen's size in pixels.
void MeasureScreen();

/// Name of the user or the computer; empty if the system returns none.
QString ReadOsUserName();
QString ReadComputerName();

/// The text before the first NUL; empty if it starts with NUL or contains none.
QString CutAtNull(const QString& text);

/// Determines the installation from the program's folder, reads its definition rows and leaves the configuration
/// connection open on the file in use. Returns ConfigConnectionOpen: false without a message if there is no
/// installation, no configuration file or no usable user name. If the common configuration file cannot be opened, a
/// message box is shown. Throws platform::RuntimeError if a later step fails.
bool LoadEnvironment();
