#pragma once

#include <optional>

#include "database/DatabaseSession.h"
#include "database/QueryCache.h"
#include "database/sql/ParameterisedStatement.h"
#include "database/sql/SqlDialect.h"
#include "database/sqlite/PreparedStatements.h"
#include "database/sqlite/SqliteHandle.h"
#include "platform/PlainFile.h"

namespace database {

/// Session on a database file.
class SqliteSession : public DatabaseSession {
  public:
    /// Throws what OpenSqliteFile throws.
    explicit SqliteSession(const ConnectionRequest& request);
    /// Takes over a database opened by the caller, usually in memory.
    SqliteSession(SqliteDatabase database, const TextRules& rules);
    ~SqliteSession() override;

    std::shared_ptr<ResultTable> Query(const QString& sql) override;
    void Execute(const QString& sql) override;
    void BeginTransaction() override;
    void RollBackTransaction() override;
    UpdatableResult QueryForUpdate(const QString& sql) override;
    void Insert(RecordTarget& target, const std::vector<WrittenField>& fields) override;
    bool BeginReadScope() noexcept override;
    void EndReadScope() noexcept override;

  private:
    bool LeaveTransaction() noexcept;
    void SetUp();
    void ReopenChangedFile();
    PreparedStatement& Prepare(const QString& sql);
    PreparedStatement Compile(const QString& sql);
    void BindLiterals(const PreparedStatement& statement);
    int FirstStep(PreparedStatement& statement);
    std::shared_ptr<ResultTable> ReadRows(PreparedStatement& statement);

    ConnectionRequest request_;
    QString path_;
    std::optional<platform::FileVersion> version_;  // of a file that is read without locks
    TextRules rules_;
    SqliteDatabase database_;
    PreparedStatements statements_;
    ParameterisedStatement lifted_;
    QueryCache queryCache_;
    bool scope_ = false;
};

/// The dialect that the session's statements are translated to before they are prepared.
const SqlDialect& SqliteDialect();

/// Throws what the constructor throws.
std::unique_ptr<DatabaseSession> OpenSqliteSession(const ConnectionRequest& request);

}  // namespace database
