#pragma once

#include <QString>
#include <QStringList>

#include "database/DatabaseSession.h"
#include "database/odbc/OdbcHandle.h"
#include "database/sql/SqlDialect.h"

namespace database {

/// What the provider needs to know about a server engine. Empty statements are not sent.
struct ServerEngine {
    QString name = {};     ///< prefix of the name that drivers report
    bool adapted = false;  ///< statements are translated to `dialect`; otherwise sent unchanged
    SqlDialect dialect = {};
    OdbcFetch fetch = OdbcFetch::Utf16Pieces;
    QStringList atStart = {};       ///< %1: statement timeout in milliseconds; %2: in seconds
    QString readOnly = {};          ///< rejects all writes of the session; drivers ignore the connection attribute
    QStringList beginReading = {};  ///< starts one snapshot for all reads until ROLLBACK
    QString beginWriting = {};      ///< empty: transactions of the driver (SQLEndTran)
    bool failureEndsTransaction = false;  ///< a failed statement aborts the transaction, unless there is a savepoint
};

/// The engine with the name that the driver reports; for an unknown name one that sends statements unchanged.
const ServerEngine& EngineOf(const QString& reportedName);

}  // namespace database
