#include "database/sqlite/SqliteSession.h"

#include "database/sql/StatementAdapter.h"
#include "database/sqlite/OpenSqlite.h"
#include "database/sqlite/PreparedStatements.h"
#include "database/sqlite/SqliteHandle.h"

namespace database {
namespace {

// 15 digits: an integer in a floating-point column reads as "5", not "5.0".
QByteArray RealText(double value) { return QByteArray::number(value, 'g', 15); }

// sqlite3_value is safe here, as only one thread uses a connection, and costs a third of separate calls for type, text
// and length of each column.
void AppendCell(ResultTable& result, sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            result.AppendNull();
            break;
        case SQLITE_FLOAT:
            result.AppendText(RealText(sqlite3_value_double(value)));
            break;
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
            result.AppendText({text, text == nullptr ? 0 : sqlite3_value_bytes(value)});
        }
    }
}

}  // namespace

const SqlDialect& SqliteDialect() {
    // Chains are limited to 200 terms: the engine counts each term as one level of depth, and allows 1,000.
    static const SqlDialect dialect = {.topIsLimit = true,
                                       .flattenRightJoins = true,
                                       .bracketQuotedNames = true,
                                       .longestChain = 200,
                                       .textCollation = QString::fromLatin1(kSuiteTextCollation),
                                       .caseBlindCollation = QStringLiteral("NOCASE")};
    return dialect;
}

std::unique_ptr<DatabaseSession> OpenSqliteSession(const ConnectionRequest& request) {
    return std::make_unique<SqliteSession>(request);
}

// The version is read before opening, so that a change in between is detected later.
SqliteSession::SqliteSession(const ConnectionRequest& request)
    : request_(request),
      path_(SqlitePath(request.dataSource)),
      version_(platform::FileVersionOf(path_)),
      rules_(request.rules),
      database_(OpenSqliteFile(request)) {
    SetUp();
}

SqliteSession::SqliteSession(SqliteDatabase database, const TextRules& rules)
    : rules_(rules), database_(std::move(database)) {
    SetUp();
}

void SqliteSession::SetUp() {
    if (!IsWithoutLocks(database_.get())) version_.reset();
    if (AddSuiteText(database_.get()) != SQLITE_OK) throw SqliteFailure(database_.get());
}

// The engine never re-reads a file opened as immutable.
void SqliteSession::ReopenChangedFile() {
    if (!version_ || scope_ || platform::FileVersionOf(path_) == *version_) return;
    statements_.Clear();
    version_ = platform::FileVersionOf(path_);
    database_ = OpenSqliteFile(request_);
    SetUp();
}

SqliteSession::~SqliteSession() { EndReadScope(); }

// A literal may be where the engine allows no parameter, such as the name of a table or a collation. Then, and for the
// message of every error, the original text is prepared.
PreparedStatement& SqliteSession::Prepare(const QString& sql) {
    ReopenChangedFile();
    lifted_.Lift(sql);
    if (lifted_.LiteralCount() > 0) {
        try {
            return statements_.Get(lifted_.Text(), [this] { return Compile(lifted_.Text()); });
        } catch (const DatabaseError& error) {
            if (error.Number() != kStatementFailure) throw;
            lifted_.Lift({});
        }
    }
    return statements_.Get(sql, [this, &sql] { return Compile(sql); });
}

PreparedStatement SqliteSession::Compile(const QString& sql) {
    return {database_.get(), AdaptStatement(sql, SqliteDialect(), rules_)};
}

void SqliteSession::BindLiterals(const PreparedStatement& statement) {
    const auto count = static_cast<int>(lifted_.LiteralCount());
    if (sqlite3_bind_parameter_count(statement.Handle()) != count)
        throw DatabaseError(kStatementFailure, QStringLiteral("必要なパラメーターの値が指定されていません。"));
    for (int i = 0; i < count; ++i) {
        const QByteArrayView value = lifted_.Literal(static_cast<size_t>(i));
        // No copy: lifted_ is unchanged until the next statement, and this run ends before that.
        const int code =
            sqlite3_bind_text(statement.Handle(), i + 1, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
        if (code != SQLITE_OK) throw SqliteFailure(database_.get());
    }
}

// If a writer crashed since the opening, a read-only connection can't roll back its journal.
int SqliteSession::FirstStep(PreparedStatement& statement) {
    int code = sqlite3_step(statement.Handle());
    if (code == SQLITE_READONLY_ROLLBACK && !scope_) {
        sqlite3_reset(statement.Handle());
        if (RollBackHotJournal(path_, LockWaitMilliseconds(request_.commandTimeout)))
            code = sqlite3_step(statement.Handle());
    }
    return code;
}

std::shared_ptr<ResultTable> SqliteSession::ReadRows(PreparedStatement& statement) {
    const SqliteRun run(statement.Handle());
    int code = FirstStep(statement);
    if (code == SQLITE_DONE) return statement.EmptyResult();
    auto result = std::make_shared<ResultTable>(statement.Columns());
    const int columns = result->Columns().Count();
    for (; code == SQLITE_ROW; code = sqlite3_step(statement.Handle())) {
        result->BeginRow();
        for (int column = 0; column < columns; ++column)
            AppendCell(*result, sqlite3_column_value(statement.Handle(), column));
    }
    if (code != SQLITE_DONE) throw SqliteFailure(database_.get());
    return result;
}

std::shared_ptr<ResultTable> SqliteSession::Query(const QString& sql) {
    if (scope_) {
        if (auto known = queryCache_.Find(sql)) return known;
    }
    PreparedStatement& statement = Prepare(sql);
    BindLiterals(statement);
    auto result = ReadRows(statement);
    if (scope_) queryCache_.Keep(sql, result, statement.use);
    return result;
}

// Inside the scope's transaction the write would be invisible to others until the scope ends.
void SqliteSession::Execute(const QString& sql) {
    EndReadScope();
    PreparedStatement& statement = Prepare(sql);
    BindLiterals(statement);
    const SqliteRun run(statement.Handle());
    int code = FirstStep(statement);
    while (code == SQLITE_ROW) code = sqlite3_step(statement.Handle());
    if (code != SQLITE_DONE) throw SqliteFailure(database_.get());
}

// A transaction that begins with a read fails at its first write, without waiting, if another program has written
// since.
void SqliteSession::BeginTransaction() { Execute(QStringLiteral("BEGIN IMMEDIATE")); }

void SqliteSession::RollBackTransaction() {
    if (!LeaveTransaction()) throw SqliteFailure(database_.get());
}

UpdatableResult SqliteSession::QueryForUpdate(const QString& sql) {
    PreparedStatement& statement = Prepare(sql);
    BindLiterals(statement);
    auto target = std::make_shared<InsertTarget>(database_.get(), statement.Handle());
    return {ReadRows(statement), std::move(target)};
}

void SqliteSession::Insert(RecordTarget& target, const std::vector<WrittenField>& fields) {
    EndReadScope();
    static_cast<InsertTarget&>(target).Insert(fields);
}

// The first read, not BEGIN, takes the snapshot.
bool SqliteSession::BeginReadScope() noexcept {
    if (scope_ || sqlite3_get_autocommit(database_.get()) == 0) return false;
    try {
        ReopenChangedFile();
    } catch (const DatabaseError&) {
        return false;
    }
    if (RunPlain(database_.get(), "BEGIN") != SQLITE_OK) return false;
    scope_ = RunPlain(database_.get(), "SELECT 1 FROM sqlite_schema LIMIT 1") == SQLITE_OK;
    if (!scope_) RunPlain(database_.get(), "ROLLBACK");
    return scope_;
}

void SqliteSession::EndReadScope() noexcept {
    if (!scope_) return;
    scope_ = false;
    queryCache_.Forget();
    RunPlain(database_.get(), "COMMIT");
    LeaveTransaction();
}

// If the transaction stayed open, for lack of memory to end it, it would lock out all others as long as this process
// runs.
bool SqliteSession::LeaveTransaction() noexcept {
    constexpr int kTries = 3;
    for (int i = 0; i < kTries && sqlite3_get_autocommit(database_.get()) == 0; ++i)
        RunPlain(database_.get(), "ROLLBACK");
    return sqlite3_get_autocommit(database_.get()) != 0;
}

}  // namespace database
