#include "platform/database/SqliteHandle.h"

#include <algorithm>
#include <array>

namespace platform {
namespace {

struct CodeNumber {
    int code;  // primary result code
    long number;
};

constexpr std::array<CodeNumber, 7> kNumbers = {{
    {SQLITE_ERROR, kStatementFailure},
    {SQLITE_RANGE, kStatementFailure},
    {SQLITE_TOOBIG, kStatementFailure},
    {SQLITE_CONSTRAINT, kIntegrityViolation},
    {SQLITE_READONLY, kPermissionDenied},
    {SQLITE_PERM, kPermissionDenied},
    {SQLITE_AUTH, kPermissionDenied},
}};

}  // namespace

long NumberOfSqliteCode(int code) {
    const auto found = std::find_if(kNumbers.begin(), kNumbers.end(),
                                    [&](const CodeNumber& row) { return row.code == (code & 0xFF); });
    return found == kNumbers.end() ? kEngineFailure : found->number;
}

DatabaseError SqliteFailure(sqlite3* database) {
    return {NumberOfSqliteCode(sqlite3_extended_errcode(database)), QString::fromUtf8(sqlite3_errmsg(database))};
}

int RunPlain(sqlite3* database, const char* sql) noexcept {
    return sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
}

}  // namespace platform
