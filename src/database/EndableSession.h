#pragma once

#include "database/DatabaseSession.h"

namespace database {

/// A session whose statements break off when the program is asked to end, as the engines' sessions do on EndRequested;
/// the request is then carried out before the failure is thrown. A desktop file's transaction is rolled back first, for
/// the process mostly ends in there.
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

    std::shared_ptr<DatabaseSession> session_;  // carrying out a request closes the connection that owns this object
};

}  // namespace database
