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

/// Creates the user's private copies of configuration and report files in UserConfFolder and UserReportFolder if they
/// are missing, and links the tables of the copied template files to the user's work tables if the report host is
/// installed. Existing files are not changed. The folder above both is made private; if it, or anything in it, is a
/// link or belongs to another user, nothing is created, and UserConfFolder and UserReportFolder are emptied. Failures
/// are recorded in the run history and the next step is tried; throws nothing. While no configuration connection is
/// open, the row is lost but its number is used.
void PrepareUserConfig();

// Read the definition rows of the connected configuration database. Without a row the fields keep their values. A
// failed read throws database::DatabaseError; a Null in `db` or `dbmw` throws platform::RuntimeError.

/// The row 'GNR' of データベース定義 into GeneralDatabase.
void ReadGeneralDatabaseDefinition();
/// Office, install kind and client update kind of the row '001' of 動作環境定義.
void ReadInstallation();
/// All columns of the row '001' of 動作環境定義 into Environment.
void ReadEnvironmentDefinition();
