#pragma once

#include <QList>
#include <QString>

#include "database/Database.h"

// Folders and files of an installation. `root` is its folder as an absolute path.

namespace setup {

/// Folders with a user's configuration and report files.
struct FilePlaces {
    QString user;  ///< empty for the common ones
    QString conf;
    QString report;
};

/// The common folders of an installation.
FilePlaces CommonPlaces(const QString& root);
/// The private folders of a user, whether or not they exist.
FilePlaces PlacesOf(const QString& root, const QString& user);
/// The private folders of all users that have some, sorted by user name.
QList<FilePlaces> AllPrivatePlaces(const QString& root);
/// True if the current user may enter the folders, or they do not exist. Private folders are accessible to their user
/// only, so often just the administrator may enter them.
bool MayEnter(const FilePlaces& places);
/// Throws RuntimeError with the names of all users whose folders may not be entered.
void RequireEntry(const QList<FilePlaces>& all);
/// All private folders, for commands that change all of them or none. Throws like RequireEntry.
QList<FilePlaces> AllPrivatePlacesToChange(const QString& root);

/// Throws UsageError unless this machine has a user of that name, or the installation private folders of one.
void RequireUser(const QString& root, const QString& user);

/// True if the folder contains an installation, or parts of one.
bool HoldsInstallation(const QString& folder);

/// Absolute path of an installation named on the command line. Throws UsageError if there is none.
QString InstallationRoot(const QString& installation);

/// Path of a database file by its name without suffix; .accdb takes precedence over .mdb; empty if there is none.
QString DatabaseIn(const QString& folder, const QString& name);
/// The configuration file in a conf folder; .accdb takes precedence over .mdb; empty if there is none.
QString ConfigurationFile(const QString& confFolder);
/// All template files in a report folder.
QStringList TemplateFilesIn(const QString& reportFolder);
/// The work-table file used by the template files of a report folder, whether or not it exists.
QString WorkTablesIn(const QString& reportFolder);

/// A configuration file used by programs.
struct ConfigurationInUse {
    QString file;
    QString user;  ///< owner of the private copy; empty for the common file
};

/// The configuration files in use in an installation: the common one or, with private copies, one for each user, sorted
/// by user name; only that of `user` if it is not empty. Throws UsageError if there is no installation or no such user,
/// database::DatabaseError if the common file can't be read.
QList<ConfigurationInUse> ConfigurationsInUse(const QString& installation, const QString& user);

/// インストール区分 of a configuration file as the programs read it: the numeric value of its text, 0 without a row.
/// Throws database::DatabaseError.
int InstallKindOf(const QString& file);

/// Opens a database file of the suite, which must exist. Throws database::DatabaseError.
database::Connection OpenSuiteFile(const QString& file, database::ConnectMode mode);

}  // namespace setup
