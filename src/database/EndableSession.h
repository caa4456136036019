#pragma once

#include "database/DatabaseSession.h"

namespace database {

/// Decorator that handles a request to end the program. EndRequested makes the engines' sessions abort the running
/// statement; the request is then carried out before the failure propagates. The transaction of a desktop file is
/// rolled back first, since the process usually exits there.
class EndableSession : public DatabaseSession {
  public:
    explicit EndableSession(std::unique_ptr<DatabaseSession> session) : session_(std::move(session)) {}

    QString EngineName() const override { return session_->EngineName(); }
    std::shared_ptr<ResultTable> Query(const QString& sql) override;
    void Execute(const QString& sql) override;
    void BeginTransaction() override;
    void CommitTransaction() override;
    void RollBackTransaction() override;
    UpdatableResult QueryForUpdate(const QString& sql) override;
    void Insert(RecordTarget& target, const std::vector<WrittenField>& fields) override;
    bool BeginReadScope() noexcept override { return session_->BeginReadScope(); }
    void EndReadScope() noexcept override { session_->EndReadScope(); }

  private:
    template <typename Work>
    auto Endable(Work work);

    std::shared_ptr<DatabaseSession> session_;  // shared: the end handler may destroy this object
};

}  // namespace database
