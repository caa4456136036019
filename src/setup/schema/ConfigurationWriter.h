#pragma once

#include <QString>

#include "globals/EnvironmentDefinition.h"

namespace setup {

/// Settings of a new configuration file.
struct ConfigurationRequest {
    QString generalFile;  ///< absolute path of the general database
    FileKind kind = FileKind::Accdb;
    int installKind = 0;   ///< 0: all users share conf and report; 1: each user has private copies
    bool signedIn = true;  ///< the sample's launching staff member is signed in; otherwise the first start asks
};

/// Creates usrcnfg: definition row, environment row and menu rows. Throws database::DatabaseError.
void WriteConfiguration(const QString& path, const ConfigurationRequest& request);

}  // namespace setup
