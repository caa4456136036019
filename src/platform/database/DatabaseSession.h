#pragma once

#include <QString>
#include <memory>

#include "platform/Database.h"
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

    /// Runs one SELECT and reads all of its rows.
    virtual std::shared_ptr<const ResultTable> Query(const QString& sql) = 0;
    /// Runs one statement without rows.
    virtual void Execute(const QString& sql) = 0;

    /// False when a scope stands already.
    virtual bool BeginReadScope() = 0;
    virtual void EndReadScope() noexcept = 0;
};

/// Opens the database that the request names with the provider it asks for; kProviderNotFound for an unknown one.
std::unique_ptr<DatabaseSession> OpenSession(const ConnectionRequest& request);

}  // namespace platform
