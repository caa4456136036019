// Part of DatabaseSession.h: OpenSession, MakeEndable and the defaults of DatabaseSession.

#include "database/DatabaseSession.h"

#include <array>

#include "database/odbc/OdbcSession.h"
#include "database/sqlite/SqliteSession.h"
#include "platform/EndRequest.h"

namespace database {
namespace {

[[noreturn]] void ThrowNotUpdatable() {
    throw DatabaseError(kNotUpdatable, QStringLiteral("このレコードセットには追加できません。"));
}

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

void RollBack(DatabaseSession& session) noexcept {
    try {
        session.EndReadScope();
        session.RollBackTransaction();
    } catch (const DatabaseError&) {
        // The engine has rolled back already.
    }
}

template <typename Work>
auto EndableSession::Endable(Work work) {
    const std::shared_ptr<DatabaseSession> session = session_;
    try {
        return work(*session);
    } catch (const DatabaseError&) {
        if (platform::EndRequested()) {
            if (session->EngineName().isEmpty()) RollBack(*session);
            platform::CarryOutEndRequest();
        }
        throw;
    }
}

std::shared_ptr<ResultTable> EndableSession::Query(const QString& sql) {
    return Endable([&](DatabaseSession& session) { return session.Query(sql); });
}

void EndableSession::Execute(const QString& sql) {
    Endable([&](DatabaseSession& session) { session.Execute(sql); });
}

void EndableSession::BeginTransaction() {
    Endable([](DatabaseSession& session) { session.BeginTransaction(); });
}

void EndableSession::CommitTransaction() {
    Endable([](DatabaseSession& session) { session.CommitTransaction(); });
}

void EndableSession::RollBackTransaction() {
    Endable([](DatabaseSession& session) { session.RollBackTransaction(); });
}

UpdatableResult EndableSession::QueryForUpdate(const QString& sql) {
    return Endable([&](DatabaseSession& session) { return session.QueryForUpdate(sql); });
}

void EndableSession::Insert(RecordTarget& target, const std::vector<WrittenField>& fields) {
    Endable([&](DatabaseSession& session) { session.Insert(target, fields); });
}

using Opener = std::unique_ptr<DatabaseSession> (*)(const ConnectionRequest&);

struct Provider {
    QLatin1StringView prefix;  // the rest of the name is the provider's version
    Opener open;
};

const std::array<Provider, 2> kProviders = {{
    {QLatin1StringView("Microsoft.ACE.OLEDB"), &OpenSqliteSession},
    {QLatin1StringView("Microsoft.Jet.OLEDB"), &OpenSqliteSession},
}};

}  // namespace

UpdatableResult DatabaseSession::QueryForUpdate(const QString& /*sql*/) { ThrowNotUpdatable(); }

void DatabaseSession::Insert(RecordTarget& /*target*/, const std::vector<WrittenField>& /*fields*/) {
    ThrowNotUpdatable();
}

std::unique_ptr<DatabaseSession> MakeEndable(std::unique_ptr<DatabaseSession> session) {
    return std::make_unique<EndableSession>(std::move(session));
}

std::unique_ptr<DatabaseSession> OpenSession(const ConnectionRequest& request) {
    for (const Provider& provider : kProviders)
        if (request.provider.startsWith(provider.prefix, Qt::CaseInsensitive))
            return MakeEndable(provider.open(request));
    return MakeEndable(OpenOdbcSession(request));
}

}  // namespace database
