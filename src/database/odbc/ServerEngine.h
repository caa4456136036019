#pragma once

#include <QString>
#include <QStringList>

#include "database/DatabaseSession.h"
#include "database/odbc/OdbcHandle.h"
#include "database/sql/SqlDialect.h"

namespace database {

/// What OdbcSession needs to know about a server engine. `atStart` to `beginWriting` are statements in the engine's
/// SQL; an empty one is skipped.
struct ServerEngine {
    QString name = {};     ///< prefix of the name that drivers report
    bool adapted = false;  ///< statements are translated to `dialect`; otherwise sent unchanged
    SqlDialect dialect = {};
    OdbcFetch fetch = OdbcFetch::Utf16Pieces;
    QStringList atStart = {};       ///< after connecting; %1: statement timeout in milliseconds; %2: in seconds
    QString readOnly = {};          ///< makes all writes of the session fail; empty: the session rejects them itself
    QStringList beginReading = {};  ///< starts one snapshot for all reads until ROLLBACK; empty: no read scopes
    QString beginWriting = {};      ///< begins a transaction; empty: transactions of the driver (SQLEndTran)
    bool failureEndsTransaction = false;  ///< a failed statement aborts the transaction, unless there is a savepoint
};

/// The engine whose name is a prefix of the one that the driver reports (SQL_DBMS_NAME), ignoring case; for an unknown
/// name one that gets statements unchanged.
const ServerEngine& EngineOf(const QString& reportedName);

}  // namespace database
