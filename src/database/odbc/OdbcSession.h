#pragma once

#include <QHash>
#include <functional>

#include "database/DatabaseSession.h"
#include "database/QueryCache.h"
#include "database/odbc/LookupCache.h"
#include "database/odbc/OdbcHandle.h"
#include "database/odbc/ServerEngine.h"
#include "database/sql/ParameterisedStatement.h"

namespace database {

/// Session on a server database, accessed through the ODBC driver manager. Never reconnects: once the connection is
/// lost, every statement fails. Records cannot be added (QueryForUpdate).
class OdbcSession : public DatabaseSession {
  public:
    /// Throws what OdbcConnectionText and the driver throw.
    explicit OdbcSession(const ConnectionRequest& request);
    ~OdbcSession() override;

    QString EngineName() const override { return reportedName_; }
    std::shared_ptr<ResultTable> Query(const QString& sql) override;
    void Execute(const QString& sql) override;
    void BeginTransaction() override;
    void CommitTransaction() override;
    void RollBackTransaction() override;
    bool BeginReadScope() noexcept override;
    void EndReadScope() noexcept override;

  private:
    /// What happens to the read scope after a failed statement. Propagates: a new snapshot is taken. IsIgnored: the
    /// caller ignores the failure, and the snapshot is kept.
    enum class Failure { Propagates, IsIgnored };

    void StartSession(const ConnectionRequest& request);
    std::shared_ptr<ResultTable> Read(const QString& sql, Failure failure = Failure::Propagates);
    AdaptedStatement Adapted(const QString& sql) const;
    const std::shared_ptr<StatementUse>& UseOf(const QString& lifted);
    void RunNative(const QString& sql) const;
    void Guarded(const std::function<void()>& work, Failure failure = Failure::Propagates);
    void Recover(bool savepoint) noexcept;
    void SetAutomaticCommit(bool on) const;
    void EndTransaction(bool keep);
    void EndDriversTransaction(bool keep);
    void CheckUsable() const;

    TextRules rules_;
    OdbcConnection connection_;
    QString reportedName_;
    const ServerEngine& engine_;
    bool readOnly_;
    bool scope_ = false;
    bool transaction_ = false;
    bool usable_ = true;  // false once the driver's transaction can't be ended: later writes would never be committed
    ParameterisedStatement lifted_;
    QHash<QString, std::shared_ptr<StatementUse>> uses_;
    QueryCache queryCache_;
    LookupCache lookupCache_;
};

/// For every provider that is not one of desktop files. Throws what the constructor throws.
std::unique_ptr<DatabaseSession> OpenOdbcSession(const ConnectionRequest& request);

}  // namespace database
