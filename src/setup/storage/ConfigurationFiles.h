#pragma once

#include <QList>
#include <QString>

#include "database/Database.h"

namespace setup {

/// A configuration file that programs work with.
struct ConfigurationInUse {
    QString file;
    QString user;  ///< whose private copy it is; empty for the common one
};

/// The configuration files in use in an installation: the common one, or with private copies one for each user, in the
/// order of their names; of these only that of `user` when it is not empty. Throws UsageError when there is no
/// installation or no such user, database::DatabaseError when the common file can't be read.
QList<ConfigurationInUse> ConfigurationsInUse(const QString& installation, const QString& user);

/// インストール区分 of a configuration file as the programs read it: the numeric value of its text, 0 without a row.
/// Throws database::DatabaseError.
int InstallKindOf(const QString& file);

/// Opens a configuration file so that nothing can be written through it. Throws database::DatabaseError.
database::Connection OpenForReading(const QString& file);

}  // namespace setup
