#pragma once

#include <QString>
#include <memory>

#include "platform/DatabaseTypes.h"
#include "platform/RuntimeError.h"
#include "platform/database/ResultTable.h"

namespace platform {

/// What Connection was told, parsed from the connection string. Names of fields are matched without case.
struct ConnectionRequest {
    QString provider;
    QString dataSource;
    QString initialCatalog;
    QString userId;
    QString password;
    int connectionTimeout = 15;  // seconds
    int commandTimeout = 30;     // seconds
    ConnectMode mode = ConnectMode::ReadWrite;
    TextRules rules;
};

/// The provider's side of a connection: one open database. Statements arrive in the words of the suite; making
/// them fit the engine is the session's business. Everything throws DatabaseError.
class DatabaseSession {
  public:
    virtual ~DatabaseSession() = default;

    /// Runs one SELECT and reads all of its rows. Whoever holds the table alone may have it forget rows.
    virtual std::shared_ptr<ResultTable> Query(const QString& sql) = 0;
    /// Runs one statement without rows. It ends a read scope that stands.
    virtual void Execute(const QString& sql) = 0;

    /// Several statements as one. Begin keeps other writers out, or waits for them as long as a statement does, so that
    /// what is read inside is still true when it is written on.
    virtual void BeginTransaction() { Execute(QStringLiteral("BEGIN")); }
    virtual void CommitTransaction() { Execute(QStringLiteral("COMMIT")); }
    virtual void RollBackTransaction() { Execute(QStringLiteral("ROLLBACK")); }

    /// False when a scope or a transaction stands already, or when the engine refuses.
    virtual bool BeginReadScope() noexcept = 0;
    virtual void EndReadScope() noexcept = 0;
};

/// Opens the database that the request names with the provider it asks for; kProviderNotFound for an unknown one.
std::unique_ptr<DatabaseSession> OpenSession(const ConnectionRequest& request);

}  // namespace platform
