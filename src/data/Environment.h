#pragma once

#include <QString>

// The environment of a program at its start. LoadEnvironment finds the installation and opens the configuration
// database; the procedures after it are its steps, for tests. Results are stored in ProgramGlobals.

/// Sets ScreenSize to the primary screen's size in device-independent pixels.
void MeasureScreen();

/// Login name of the user, and name of the computer; empty if the system returns none.
QString ReadOsUserName();
QString ReadComputerName();

/// The text before the first NUL; empty if it starts with NUL or contains none.
QString CutAtNull(const QString& text);

/// Determines the installation from the program's folder, whose path must contain "prgbin" or "prgsrc"; reads the
/// definition rows and opens ConfigConnection on the file in use, the common one or the user's own (see InstallKind).
/// True on success. False without a message if there is no installation, no configuration file or no usable user name;
/// false after a message box if the common configuration file cannot be opened. Throws platform::RuntimeError if a
/// later step fails.
bool LoadEnvironment();

/// Creates the user's own copies of configuration and report files in UserConfFolder and UserReportFolder if they are
/// missing, and links the copied template files to the user's work tables if the report host is installed. Complete
/// existing files are not changed. The folder above both is made private (ClaimPrivateFolder); if that fails, nothing
/// is created, and UserConfFolder and UserReportFolder are emptied. A failure is recorded in the run history, and the
/// next step is tried; throws nothing. While ConfigConnection is not open, the history row is lost but its number is
/// used.
void PrepareUserConfig();

// The following read definition rows through ConfigConnection. Without the row the fields keep their values. A failed
// read throws database::DatabaseError.

/// The row 'GNR' of データベース定義 into GeneralDatabase. Throws platform::RuntimeError for a Null in `db` or `dbmw`;
/// a Null in another column leaves its field unchanged.
void ReadGeneralDatabaseDefinition();
/// Office, install kind and client update kind of the row '001' of 動作環境定義.
void ReadInstallation();
/// All columns of the row '001' of 動作環境定義 into Environment.
void ReadEnvironmentDefinition();
