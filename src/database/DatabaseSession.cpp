#include "database/DatabaseSession.h"

namespace database {
namespace {

[[noreturn]] void RaiseNotUpdatable() {
    throw DatabaseError(kNotUpdatable, QStringLiteral("このレコードセットには追加できません。"));
}

}  // namespace

UpdatableResult DatabaseSession::QueryForUpdate(const QString& /*sql*/) { RaiseNotUpdatable(); }

void DatabaseSession::Insert(RecordTarget& /*target*/, const std::vector<WrittenField>& /*fields*/) {
    RaiseNotUpdatable();
}

}  // namespace database
