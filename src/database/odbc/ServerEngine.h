#pragma once

#include <QString>
#include <QStringList>

#include "database/DatabaseSession.h"
#include "database/odbc/OdbcRows.h"
#include "database/sql/SqlDialect.h"

namespace database {

/// What the provider has to know of a server's engine. Empty statements are not sent.
struct ServerEngine {
    QString name = {};     ///< as drivers report it, or its beginning
    bool adapted = false;  ///< statements are put into the engine's words; otherwise they go as the suite writes them
    SqlDialect differences = {};
    OdbcFetch fetch = OdbcFetch::Utf16Pieces;
    QStringList atStart = {};       ///< %1: how long a statement may run, in milliseconds; %2: in seconds
    QString readOnly = {};          ///< refuses every write of the session; no attribute of the connection does that
    QStringList beginReading = {};  ///< fixes one snapshot for all reads up to ROLLBACK
    QString beginWriting = {};      ///< empty: the driver's own transactions
    bool failureEndsTransaction = false;  ///< a failed statement spoils what is around it, unless a savepoint stands
};

/// The engine that a driver reports under that name; one that takes everything as written where it is not known.
const ServerEngine& EngineOf(const QString& reportedName);

}  // namespace database
