#include "database/EndableSession.h"

#include "platform/EndRequest.h"

namespace database {
namespace {

void RollBack(DatabaseSession& session) noexcept {
    try {
        session.EndReadScope();
        session.RollBackTransaction();
    } catch (const DatabaseError&) {
        // The engine has rolled back already.
    }
}

}  // namespace

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

}  // namespace database
