#include "database/sqlite/OpenSqlite.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <array>

#include "database/sqlite/SqliteHandle.h"
#include "platform/EndRequest.h"
#include "platform/JetHeader.h"
#include "platform/PlainFile.h"

namespace database {
namespace {

constexpr int kLongestLockWait = 5000;
constexpr qint64 kHeaderBytes = 100;
constexpr qint64 kSmallestPage = 512;

[[noreturn]] void Refuse(const QString& text, const QString& path) {
    throw DatabaseError(kEngineFailure, text.arg(QDir::toNativeSeparators(path)));
}

const char* const kJetText =
    "「%1」は Jet/ACE 形式のデータベースで、この環境では直接開けません。"
    "suite-setup init でインストールを作り、suite-setup import インストール 元ファイル で取り込んでください。";

const QString kNotPlain = QStringLiteral("「%1」は通常のファイルではありません。");

// The engine opens these files too, and would block on a pipe.
void CheckSideFiles(const QString& path) {
    for (const char* suffix : {"-journal", "-wal", "-shm"}) {
        const QString side = path + QLatin1StringView(suffix);
        if (platform::IsSpecialFile(side)) Refuse(kNotPlain, side);
    }
}

void CheckFile(const QString& path) {
    const QFileInfo info(path);
    if (info.isDir())
        Refuse(QStringLiteral("「%1」はフォルダーです。データベースのファイルを指定してください。"), path);
    if (!info.exists()) Refuse(QStringLiteral("データベース「%1」が見つかりません。"), path);
    if (platform::IsSpecialFile(path)) Refuse(kNotPlain, path);
    CheckSideFiles(path);
    QFile file(path);
    if (!platform::OpenPlainFile(file)) Refuse(QStringLiteral("データベース「%1」を読む権限がありません。"), path);
    if (file.size() == 0) Refuse(QStringLiteral("データベース「%1」は空のファイルです (0 バイト)。"), path);
    const QByteArray header = file.read(kHeaderBytes);
    if (platform::IsJetHeader(header)) Refuse(QString::fromUtf8(kJetText), path);
    if (!header.startsWith(QByteArrayView("SQLite format 3\0", 16)))
        Refuse(QStringLiteral("「%1」はデータベースのファイルではありません。"), path);
    if (file.size() < kSmallestPage) Refuse(QStringLiteral("データベース「%1」は途中で切れています。"), path);
}

constexpr int kStepsBetweenPolls = 20000;         // in virtual machine instructions, about 1 ms
constexpr int kLongestValue = (16 << 20) + 4096;  // bytes; also applies to intermediate results

int BreakOff(void* /*unused*/) { return platform::EndRequested() ? 1 : 0; }

// A view or trigger in the file may loop forever, or build an endless text.
void LimitWork(sqlite3* database) {
    sqlite3_progress_handler(database, kStepsBetweenPolls, BreakOff, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, kLongestValue);
}

SqliteDatabase OpenNamed(const QByteArray& name, const QString& path, int flags, int lockWait) {
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(name.constData(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    SqliteDatabase database(raw);
    if (code != SQLITE_OK) Refuse(QStringLiteral("データベース「%1」を開けません。"), path);
    sqlite3_extended_result_codes(raw, 1);
    WaitForLocks(database, lockWait);
    LimitWork(raw);
    // A misspelled name in double quotes must be an error, not a string literal.
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    return database;
}

SqliteDatabase OpenHandle(const QString& path, int flags, int lockWait) {
    return OpenNamed(QFile::encodeName(path), path, flags, lockWait);
}

int ReadSchema(sqlite3* database) { return RunPlain(database, "SELECT COUNT(*) FROM sqlite_schema"); }

[[noreturn]] void RefuseUnreadable(sqlite3* database, const QString& path) {
    switch (sqlite3_errcode(database)) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            Refuse(QStringLiteral("データベース「%1」は他のプログラムが使用中です。"), path);
        case SQLITE_CORRUPT:
            Refuse(QStringLiteral("データベース「%1」は壊れているか、途中で切れています。"), path);
        case SQLITE_NOTADB:
            Refuse(QStringLiteral("「%1」はデータベースのファイルではありません。"), path);
        default:
            throw SqliteFailure(database);
    }
}

// Each statement is flushed to disk, unless the file is scratch. A file in WAL mode is switched back to a rollback
// journal: WAL needs shared memory, which does not work across machines on a network share. If another program has the
// file open, the switch fails, and the next opening retries.
void SetUpWriter(sqlite3* database, bool scratch) {
    RunPlain(database, scratch ? "PRAGMA synchronous=OFF" : "PRAGMA synchronous=FULL");
    SqliteStatement mode;
    sqlite3_stmt* raw = nullptr;
    sqlite3_prepare_v2(database, "PRAGMA journal_mode", -1, &raw, nullptr);
    mode.reset(raw);
    if (raw == nullptr || sqlite3_step(raw) != SQLITE_ROW) return;
    const bool wal = sqlite3_stricmp(reinterpret_cast<const char*>(sqlite3_column_text(raw, 0)), "wal") == 0;
    mode.reset();
    if (wal) RunPlain(database, "PRAGMA journal_mode=DELETE");
    if (scratch) RunPlain(database, "PRAGMA journal_mode=MEMORY");
}

const char* const kContentInWal =
    "データベース「%1」には、まだ本体に書き込まれていない内容 (-wal) があります。"
    "書き込む権限のある利用者が一度開くと読めるようになります。";

// If the user has write permission, first checkpoints the -wal file of a crashed writer.
SqliteDatabase OpenReader(const QString& path, int lockWait) {
    if (WalReadingOf(path) == WalReading::Refused && platform::MayWriteFile(path))
        SetUpWriter(OpenHandle(path, SQLITE_OPEN_READWRITE, lockWait).get(), false);
    switch (WalReadingOf(path)) {
        case WalReading::Ordinary:
            break;
        case WalReading::WithoutLocks:
            return OpenNamed(NameWithoutLocks(path), path, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, lockWait);
        case WalReading::Refused:
            Refuse(QString::fromUtf8(kContentInWal), path);
    }
    return OpenHandle(path, SQLITE_OPEN_READONLY, lockWait);
}

}  // namespace

int LockWaitMilliseconds(int timeoutSeconds) {
    return timeoutSeconds <= 0 ? kLongestLockWait
                               : static_cast<int>(std::min<qint64>(kLongestLockWait, timeoutSeconds * 1000LL));
}

QString SqlitePath(const QString& dataSource) {
    QString path = dataSource;
    if (!QFileInfo::exists(path) && path.contains(u'\\')) path.replace(u'\\', u'/');
    // Absolute, since the engine would parse a name that begins with "file:" as a URI.
    return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
}

bool RollBackHotJournal(const QString& path, int lockWait) {
    if (!platform::MayWriteFile(path)) return false;
    const SqliteDatabase writer = OpenHandle(path, SQLITE_OPEN_READWRITE, lockWait);
    return ReadSchema(writer.get()) == SQLITE_OK;
}

SqliteDatabase OpenSqliteFile(const ConnectionRequest& request) {
    const QString path = SqlitePath(request.dataSource);
    CheckFile(path);
    const bool reader = request.mode == ConnectMode::Read || !platform::MayWriteFile(path);
    const int wait = LockWaitMilliseconds(request.connectionTimeout);
    const auto open = [&] { return reader ? OpenReader(path, wait) : OpenHandle(path, SQLITE_OPEN_READWRITE, wait); };
    SqliteDatabase database = open();
    int code = ReadSchema(database.get());
    if (code == SQLITE_READONLY_ROLLBACK && RollBackHotJournal(path, wait)) {
        database = open();
        code = ReadSchema(database.get());
    }
    if (code != SQLITE_OK) RefuseUnreadable(database.get(), path);
    if (!reader) SetUpWriter(database.get(), request.scratch);
    WaitForLocks(database, LockWaitMilliseconds(request.commandTimeout));
    return database;
}

}  // namespace database
