#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "database/DatabaseError.h"
#include "database/DatabaseTypes.h"
#include "database/ResultTable.h"

namespace database {

/// What Connection was told, parsed from the connection string. Names of fields are matched without case.
struct ConnectionRequest {
    QString provider;
    QString dataSource;
    QString initialCatalog;  // null where there was no such field
    QString userId;
    QString password;
    int connectionTimeout = 15;  // seconds
    int commandTimeout = 30;     // seconds
    ConnectMode mode = ConnectMode::ReadWrite;
    TextRules rules;
    bool scratch = false;
};

/// The way in which records of one table are written; made by a session and used by it alone.
class RecordTarget {
  public:
    virtual ~RecordTarget() = default;
};

/// One field that somebody wrote: place in the result's columns, and value.
struct WrittenField {
    int column;
    QString value;
};

/// Rows of a SELECT together with the table that they come from.
struct UpdatableResult {
    std::shared_ptr<ResultTable> rows;
    std::shared_ptr<RecordTarget> target;
};

/// The provider's side of a connection: one open database. Statements arrive in the words of the suite; making
/// them fit the engine is the session's business. Everything throws DatabaseError.
class DatabaseSession {
  public:
    virtual ~DatabaseSession() = default;

    /// The engine behind a server's driver, as that calls it ("PostgreSQL"); empty for a desktop file.
    virtual QString EngineName() const { return {}; }

    /// Runs one SELECT and reads all of its rows. Whoever holds the table alone may have it forget rows.
    virtual std::shared_ptr<ResultTable> Query(const QString& sql) = 0;
    /// Runs one statement without rows. It ends a read scope that stands.
    virtual void Execute(const QString& sql) = 0;

    /// Several statements as one. A desktop file is kept for this writer from the beginning, a row of a server from the
    /// first write to it: what is read behind that is still true when it is written on.
    virtual void BeginTransaction() { Execute(QStringLiteral("BEGIN")); }
    virtual void CommitTransaction() { Execute(QStringLiteral("COMMIT")); }
    virtual void RollBackTransaction() { Execute(QStringLiteral("ROLLBACK")); }

    /// A SELECT to whose table records are to be added. kNotUpdatable where its columns are not those of one table,
    /// or the provider adds none.
    virtual UpdatableResult QueryForUpdate(const QString& sql);
    /// Adds one record to the target of a query of this session; columns that are not named get what the table
    /// gives. It stands by itself and is in the table when this returns. It ends a read scope that stands.
    virtual void Insert(RecordTarget& target, const std::vector<WrittenField>& fields);

    /// False when a scope or a transaction stands already, or when the engine refuses.
    virtual bool BeginReadScope() noexcept = 0;
    virtual void EndReadScope() noexcept = 0;
};

/// Opens the database that the request names with the provider it asks for; kProviderNotFound for an unknown one.
std::unique_ptr<DatabaseSession> OpenSession(const ConnectionRequest& request);

}  // namespace database
