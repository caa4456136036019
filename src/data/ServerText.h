#pragma once

#include <QList>
#include <QString>

#include "database/Database.h"

/// Something of a general database on a server by which texts are compared otherwise than the suite counts on, or not
/// at all.
struct ServerTextFault {
    QString what;    ///< a sentence for people, without its full stop
    QString remedy;  ///< the command that puts it right
};

/// Finds functions for searches and orders by names that are missing or that the account may not use, and columns
/// of the suite whose collation takes different texts for equal: a search by code or login name would find other rows.
/// Empty for a desktop file, and for an engine that gets statements as they are written. Throws
/// database::DatabaseError.
QList<ServerTextFault> FindServerTextFaults(database::Connection& general);
