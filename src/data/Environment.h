#pragma once

#include <QString>

/// Pixels of the primary screen into ScreenSize.
void MeasureScreen();

/// Names of the user and of the computer; empty where the system gives none.
QString ReadOsUserName();
QString ReadComputerName();

/// The text before the first NUL; empty when the NUL stands first or there is none.
QString CutAtNull(const QString& text);

/// Finds the installation around the running program, reads its definition rows and leaves the configuration
/// connection open on the file in use. The value of ConfigConnectionOpen; False, and no message, where there is no
/// installation, no configuration file or no usable user name. A configuration file that cannot be opened is told
/// in a message box. What fails after that opening throws platform::RuntimeError.
bool LoadEnvironment();
