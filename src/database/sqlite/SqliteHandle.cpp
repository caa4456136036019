#include "database/sqlite/SqliteHandle.h"

#include <algorithm>
#include <array>

namespace database {
namespace {

struct CodeNumber {
    int code;  // basic result code
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

struct CodeText {
    int code;  // basic result code
    const char* explanation;
};

constexpr CodeText kExplanations[] = {
    {SQLITE_ERROR, "SQL 文を実行できません。"},
    {SQLITE_BUSY, "データベースは他のプログラムが使用中です。"},
    {SQLITE_LOCKED, "データベースは他のプログラムが使用中です。"},
    {SQLITE_NOMEM, "メモリーが足りません。"},
    {SQLITE_READONLY, "データベースに書き込む権限がありません。"},
    {SQLITE_PERM, "データベースに書き込む権限がありません。"},
    {SQLITE_AUTH, "データベースに書き込む権限がありません。"},
    {SQLITE_INTERRUPT, "プログラムが終了するため中断しました。"},
    {SQLITE_IOERR, "データベースのファイルを読み書きできません。"},
    {SQLITE_CORRUPT, "データベースのファイルが壊れています。"},
    {SQLITE_NOTADB, "データベースのファイルが壊れています。"},
    {SQLITE_FULL, "ディスクの空きがありません。"},
    {SQLITE_CANTOPEN, "データベースのファイルを開けません。"},
    {SQLITE_TOOBIG, "値が長すぎます。"},
    {SQLITE_CONSTRAINT, "データベースの規則に反する値です。"},
};

QString Explanation(int code) {
    for (const CodeText& row : kExplanations)
        if (row.code == (code & 0xFF)) return QString::fromUtf8(row.explanation);
    return QStringLiteral("データベースに問題が発生しました。");
}

}  // namespace

long NumberOfSqliteCode(int code) {
    const auto found = std::find_if(kNumbers.begin(), kNumbers.end(),
                                    [&](const CodeNumber& row) { return row.code == (code & 0xFF); });
    return found == kNumbers.end() ? kEngineFailure : found->number;
}

EngineError SqliteFailure(sqlite3* database) {
    const int code = sqlite3_extended_errcode(database);
    return {NumberOfSqliteCode(code), QString::fromUtf8(sqlite3_errmsg(database)), Explanation(code)};
}

int RunPlain(sqlite3* database, const char* sql) noexcept {
    return sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
}

}  // namespace database
