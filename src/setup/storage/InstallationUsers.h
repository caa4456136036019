#pragma once

#include <QList>
#include <QString>

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

/// Absolute path of an installation named on the command line. Throws UsageError if there is none.
QString InstallationRoot(const QString& installation);

/// Path of a database file by its name without suffix; .accdb takes precedence over .mdb; empty if there is none.
QString DatabaseIn(const QString& folder, const QString& name);
/// All template files in a report folder.
QStringList FormsFilesIn(const QString& reportFolder);
/// The work-table file used by the template files of a report folder, whether or not it exists.
QString WorkTablesIn(const QString& reportFolder);

}  // namespace setup
