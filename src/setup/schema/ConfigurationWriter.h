#pragma once

#include <QString>

#include "globals/EnvironmentDefinition.h"

namespace setup {

/// What a fresh installation is told at its making.
struct ConfigurationRequest {
    QString generalFile;  ///< absolute path of the general database
    FileKind kind = kAccdb;
    int installKind = 0;   ///< 0: all users share conf and report; 1: each user has private copies
    bool signedIn = true;  ///< the launching staff member of the sample is known; otherwise the first start asks
};

/// Creates usrcnfg: definition row, environment row and the menus. Throws database::DatabaseError.
void WriteConfiguration(const QString& path, const ConfigurationRequest& request);

}  // namespace setup
