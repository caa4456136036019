#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "database/DatabaseError.h"
#include "database/DatabaseTypes.h"
#include "database/ResultTable.h"

namespace database {

/// The parsed connection string and the settings of Connection.
struct ConnectionRequest {
    QString provider;
    QString dataSource;      // path of a desktop file; server or ODBC data source name (see OdbcConnectionText)
    QString initialCatalog;  // database on a server; null if the field is missing
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
/// missing field is a null string, a field without a value an empty one. The other members of the request keep their
/// defaults.
ConnectionRequest ParseConnectionString(const QString& text);

/// The table that the records added to a recordset are inserted into. Created by QueryForUpdate of a session, and
/// passed to Insert of the same session only.
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

    /// Runs one SELECT and reads all rows. The session may keep a reference to the result, in a cache; only the sole
    /// owner may discard rows already read.
    virtual std::shared_ptr<ResultTable> Query(const QString& sql) = 0;
    /// Runs one statement and ignores its rows, if any. Ends an open read scope.
    virtual void Execute(const QString& sql) = 0;

    /// Begins a transaction. A desktop file is locked against other writers from here on, a row on a server from the
    /// first write to it: values read after that are still current when they are written back.
    virtual void BeginTransaction() { Execute(QStringLiteral("BEGIN")); }
    virtual void CommitTransaction() { Execute(QStringLiteral("COMMIT")); }
    virtual void RollBackTransaction() { Execute(QStringLiteral("ROLLBACK")); }

    /// Runs a SELECT and returns its rows and its table, for Insert. Throws kNotUpdatable if the columns do not all
    /// come from one table, and on a server.
    virtual UpdatableResult QueryForUpdate(const QString& sql);
    /// Inserts one record into the target of a query of this session; columns not in `fields` get their default.
    /// Committed on return unless a transaction is open. Ends an open read scope.
    virtual void Insert(RecordTarget& target, const std::vector<WrittenField>& fields);

    /// Takes a snapshot for all following reads (ReadScope). False if a scope or a transaction is open, or if the
    /// engine has no snapshots or refuses.
    virtual bool BeginReadScope() noexcept = 0;
    /// No effect without a scope.
    virtual void EndReadScope() noexcept = 0;
};

/// Opens the database with the provider that the request names: Microsoft.ACE.OLEDB… and Microsoft.Jet.OLEDB… are
/// desktop files, all others servers. Throws what OpenSqliteSession or OpenOdbcSession throws. The session handles a
/// request to end the program (MakeEndable).
std::unique_ptr<DatabaseSession> OpenSession(const ConnectionRequest& request);

/// Wraps a session so that it handles a request to end the program (platform/EndRequest.h). Such a request makes the
/// wrapped session abort its statement with a DatabaseError; the wrapper then calls CarryOutEndRequest and, if that
/// returns, throws the error. The transaction of a desktop file is rolled back before, since the process usually exits
/// in that call.
std::unique_ptr<DatabaseSession> MakeEndable(std::unique_ptr<DatabaseSession> session);

}  // namespace database
