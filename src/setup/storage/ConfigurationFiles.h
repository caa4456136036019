#pragma once

#include <QList>
#include <QString>

#include "database/Database.h"

namespace setup {

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

/// Opens a configuration file read-only. Throws database::DatabaseError.
database::Connection OpenForReading(const QString& file);

}  // namespace setup
