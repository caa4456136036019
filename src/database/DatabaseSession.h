#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "database/DatabaseError.h"
#include "database/DatabaseTypes.h"
#include "database/ResultTable.h"

namespace database {

/// The parsed connection string and the settings of Connection. Field names of the string ignore case.
struct ConnectionRequest {
    QString provider;
    QString dataSource;
    QString initialCatalog;  // null if the field is missing
    QString userId;
    QString password;
    int connectionTimeout = 15;  // seconds
    int commandTimeout = 30;     // seconds
    ConnectMode mode = ConnectMode::ReadWrite;
    TextRules rules;
    bool scratch = false;
};

/// Parses "Provider=...;User ID=...;Password=...;Data Source=...;Initial Catalog=...". Field names ignore case; blanks
/// around names and unquoted values are trimmed; a value may be quoted with '...' or "...", the quote doubled inside;
/// the last ";" is optional; unknown fields are ignored; of duplicate fields the last one counts. Never fails: a
/// missing field is a null string, a field without a value an empty one. Timeouts, mode and text rules of the request
/// keep their defaults.
ConnectionRequest ParseConnectionString(const QString& text);

/// The table that an updatable query inserts into. Created by a session and passed back to that session only.
class RecordTarget {
  public:
    virtual ~RecordTarget() = default;
};

/// A field that the caller has set: its column in the query's result, and its value.
struct WrittenField {
    int column;
    QString value;
};

/// Rows of a SELECT, and the table that they come from.
struct UpdatableResult {
    std::shared_ptr<ResultTable> rows;
    std::shared_ptr<RecordTarget> target;
};

/// The provider's side of a connection: one open database. Statements are in the suite's SQL dialect; the session
/// translates them for its engine. All members that are not noexcept throw DatabaseError.
class DatabaseSession {
  public:
    virtual ~DatabaseSession() = default;

    /// SQL_DBMS_NAME of a server's driver ("PostgreSQL"); empty for a desktop file.
    virtual QString EngineName() const { return {}; }

    /// Runs one SELECT and reads all rows. A sole owner of the result may discard rows already read.
    virtual std::shared_ptr<ResultTable> Query(const QString& sql) = 0;
    /// Runs one statement that returns no rows. Ends an open read scope.
    virtual void Execute(const QString& sql) = 0;

    /// Locking: a desktop file is locked for this writer from the beginning, a row of a server from the first write to
    /// it. Values read after that are still current when they are written back.
    virtual void BeginTransaction() { Execute(QStringLiteral("BEGIN")); }
    virtual void CommitTransaction() { Execute(QStringLiteral("COMMIT")); }
    virtual void RollBackTransaction() { Execute(QStringLiteral("ROLLBACK")); }

    /// Runs a SELECT whose table records are to be added to. Throws kNotUpdatable if the columns do not all come from
    /// one table, or if the provider does not support it.
    virtual UpdatableResult QueryForUpdate(const QString& sql);
    /// Inserts one record into the target of a query of this session; columns not in `fields` get their default.
    /// Committed on return unless a transaction is open. Ends an open read scope.
    virtual void Insert(RecordTarget& target, const std::vector<WrittenField>& fields);

    /// Starts a snapshot. False if a scope or a transaction is open, or if the engine refuses.
    virtual bool BeginReadScope() noexcept = 0;
    virtual void EndReadScope() noexcept = 0;
};

/// Opens the database with the provider that the request names. Throws kProviderNotFound for an unknown provider,
/// otherwise what the provider throws.
std::unique_ptr<DatabaseSession> OpenSession(const ConnectionRequest& request);

/// Decorator that handles a request to end the program. EndRequested makes the engines' sessions abort the running
/// statement; the request is then carried out before the failure propagates. The transaction of a desktop file is
/// rolled back first, since the process usually exits there. OpenSession returns such a session.
std::unique_ptr<DatabaseSession> MakeEndable(std::unique_ptr<DatabaseSession> session);

}  // namespace database
