#pragma once

#include <QList>
#include <QString>

#include "database/Database.h"

/// A setting of a server database due to which texts are compared differently than the suite expects, or not at all.
struct ServerTextFault {
    QString what;    ///< a Japanese sentence without the full stop
    QString remedy;  ///< the command that fixes it
};

/// Finds missing or inaccessible functions for searches and orders by name, and columns whose collation treats
/// different texts as equal, so that a search by code or login name would find other rows. Empty for a desktop file and
/// for an engine that gets statements unchanged. Throws database::DatabaseError.
QList<ServerTextFault> FindServerTextFaults(database::Connection& general);
