#include "database/Database.h"

#include "database/DatabaseSession.h"

namespace database {

Connection::Connection() = default;
Connection::~Connection() = default;
Connection::Connection(Connection&&) noexcept = default;
Connection& Connection::operator=(Connection&&) noexcept = default;

void Connection::Open(const QString& connectionString) {
    session_.reset();
    ConnectionRequest request = ParseConnectionString(connectionString);
    request.connectionTimeout = ConnectionTimeout;
    request.commandTimeout = CommandTimeout;
    request.mode = Mode;
    request.rules = Rules;
    request.scratch = Scratch;
    session_ = OpenSession(request);
}

void Connection::Close() noexcept { session_.reset(); }

void Connection::Execute(const QString& sql) { Session().Execute(sql); }

const std::shared_ptr<DatabaseSession>& Connection::SharedSession() const {
    if (session_ == nullptr) throw DatabaseError(kObjectClosed, QStringLiteral("接続が開いていません。"));
    return session_;
}

Transaction::Transaction(Connection& connection) : connection_(&connection) { connection.Session().BeginTransaction(); }

Transaction::~Transaction() {
    if (!active_ || !connection_->IsOpen()) return;
    try {
        connection_->Session().RollBackTransaction();
    } catch (const DatabaseError&) {
        // The engine has already rolled back, as after a failed commit or a lost server.
    }
}

void Transaction::Commit() {
    connection_->Session().CommitTransaction();
    active_ = false;
}

ReadScope::ReadScope(Connection& connection) : connection_(&connection) {
    active_ = connection.IsOpen() && connection.Session().BeginReadScope();
}

void ReadScope::End() noexcept {
    if (!active_) return;
    active_ = false;
    if (connection_->IsOpen()) connection_->Session().EndReadScope();
}

}  // namespace database
