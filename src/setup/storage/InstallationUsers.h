#pragma once

#include <QList>
#include <QString>

namespace setup {

/// Where somebody's configuration and report files lie.
struct FilePlaces {
    QString user;  ///< empty for the common ones
    QString conf;
    QString report;
};

/// The common places of an installation.
FilePlaces CommonPlaces(const QString& root);
/// The private places of a user, whether they are there or not.
FilePlaces PlacesOf(const QString& root, const QString& user);
/// The private places of everybody who has some, in the order of their names.
QList<FilePlaces> AllPrivatePlaces(const QString& root);
/// True when the user who runs this may enter the folder of the places, or it is missing. It belongs to its user alone,
/// so that often only the administrator may.
bool MayEnter(const FilePlaces& places);
/// RuntimeError with the names of all users whose folders may not be entered.
void RequireEntry(const QList<FilePlaces>& all);
/// All private places, for commands that change all of them or none; throws as RequireEntry does.
QList<FilePlaces> AllPrivatePlacesToChange(const QString& root);

/// Absolute path of an installation named on the command line. Throws UsageError when there is none.
QString InstallationRoot(const QString& installation);

/// A database file by its name without suffix, .accdb before .mdb; empty without one.
QString DatabaseIn(const QString& folder, const QString& name);
/// All forms files in a report folder.
QStringList FormsFilesIn(const QString& reportFolder);
/// The work tables that go with the forms files of a report folder, whether they are there or not.
QString WorkTablesIn(const QString& reportFolder);

}  // namespace setup
