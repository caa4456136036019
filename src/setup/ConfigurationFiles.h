#pragma once

#include <QList>
#include <QString>

#include "platform/Database.h"

namespace setup {

/// A configuration file that programs work with.
struct ConfigurationInUse {
    QString file;
    QString user;  ///< whose private copy it is; empty for the common one
};

/// The configuration files in use in an installation: the common one, or with private copies one for each user, in the
/// order of their names; of these only that of `user` when it is not empty. Throws Refusal when there is no
/// installation or no such user, platform::DatabaseError when the common file can't be read.
QList<ConfigurationInUse> ConfigurationsInUse(const QString& installation, const QString& user);

/// インストール区分 of a configuration file as the programs read it: the numeric value of its text, 0 without a row.
/// Throws platform::DatabaseError.
int InstallKindOf(const QString& file);

/// Opens a configuration file so that nothing can be written through it. Throws platform::DatabaseError.
platform::Connection OpenForReading(const QString& file);

}  // namespace setup
