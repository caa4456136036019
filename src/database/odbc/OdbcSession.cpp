#include "database/odbc/OdbcSession.h"

#include "database/ResultTable.h"
#include "database/odbc/OdbcDrivers.h"
#include "database/sql/StatementAdapter.h"
#include "database/sql/Tokenizer.h"

namespace database {
namespace {

const QString kSavepoint = QStringLiteral("suite_statement");

[[noreturn]] void Refuse(const QString& text) { throw DatabaseError(kStatementFailure, text); }

// PostgreSQL's dollar quoting: a function body between two equal tags such as $name$.
qsizetype EndOfDollarQuote(const QString& sql, const TokenSpan& mark) {
    const QStringView word = QStringView(sql).sliced(mark.begin, mark.end - mark.begin);
    const qsizetype close = word.endsWith(u'$') && word.size() > 1 ? sql.indexOf(word, mark.end) : -1;
    return close < 0 ? mark.end : close + word.size();
}

// The driver would execute several statements at once, and prompt for the value of a "?".
void CheckSingle(const QString& sql) {
    bool closed = false, empty = true;
    qsizetype from = 0;
    for (;;) {
        const TokenSpan token = NextToken(sql, from);
        if (token.kind == TokenKind::End) break;
        if (token.kind == TokenKind::Invalid) Refuse(QStringLiteral("SQL 文の引用符または括弧が閉じていません。"));
        if (token.kind == TokenKind::Parameter && sql[token.begin] == u'?')
            Refuse(QStringLiteral("必要なパラメーターの値が指定されていません。"));
        if (token.kind == TokenKind::Parameter && sql[token.begin] == u'$') {
            from = EndOfDollarQuote(sql, token);
            empty = false;
            continue;
        }
        const bool semicolon = token.kind == TokenKind::Punctuation && sql[token.begin] == u';';
        if (closed && !semicolon) Refuse(QStringLiteral("SQL 文は 1 つだけ指定してください。"));
        closed = closed || (semicolon && !empty);
        empty = empty && semicolon;
        from = token.end;
    }
    if (empty) Refuse(QStringLiteral("SQL 文は 1 つだけ指定してください。"));
}

bool Selects(const QString& sql) {
    const TokenSpan first = NextToken(sql, 0);
    return QStringView(sql).sliced(first.begin, first.end - first.begin).compare(u"SELECT", Qt::CaseInsensitive) == 0;
}

}  // namespace

std::unique_ptr<DatabaseSession> OpenOdbcSession(const ConnectionRequest& request) {
    return std::make_unique<OdbcSession>(request);
}

OdbcSession::OdbcSession(const ConnectionRequest& request)
    : rules_(request.rules),
      connection_(OdbcConnectionText(request), request.connectionTimeout, AnswerSeconds(request)),
      reportedName_(connection_.Information(SQL_DBMS_NAME)),
      engine_(EngineOf(reportedName_)),
      readOnly_(request.mode == ConnectMode::Read),
      lookupCache_(request.rules, [this](const QString& sql) { return Read(sql, Failure::IsIgnored); }) {
    StartSession(request);
}

OdbcSession::~OdbcSession() { EndReadScope(); }

void OdbcSession::StartSession(const ConnectionRequest& request) {
    const qint64 seconds = request.commandTimeout;
    if (engine_.atStart.isEmpty()) connection_.LimitStatements(request.commandTimeout);
    for (const QString& statement : engine_.atStart)
        RunNative(QString(statement)
                      .replace(QStringLiteral("%1"), QString::number(seconds * 1000))
                      .replace(QStringLiteral("%2"), QString::number(seconds)));
    if (readOnly_ && !engine_.readOnly.isEmpty()) RunNative(engine_.readOnly);
}

void OdbcSession::RunNative(const QString& sql) const { connection_.Run(sql); }

AdaptedStatement OdbcSession::Adapted(const QString& sql) const {
    CheckUsable();
    CheckSingle(sql);
    // The engine has no statement for a read-only session, so writes are rejected here.
    if (readOnly_ && engine_.readOnly.isEmpty() && !Selects(sql))
        throw DatabaseError(kPermissionDenied, QStringLiteral("この接続は読み取り専用です。"));
    if (!engine_.adapted) return {sql, {}, -1};
    return Adapt(sql, engine_.dialect, rules_);
}

// A failed statement must not abort the surrounding transaction, even on engines that do so.
void OdbcSession::Guarded(const std::function<void()>& work, Failure failure) {
    const bool inside = transaction_ || (scope_ && failure == Failure::IsIgnored);
    const bool savepoint = inside && engine_.failureEndsTransaction;
    if (savepoint) RunNative(QStringLiteral("SAVEPOINT ") + kSavepoint);
    try {
        work();
    } catch (const DatabaseError&) {
        if (engine_.failureEndsTransaction) Recover(savepoint);
        throw;
    }
    if (savepoint) RunNative(QStringLiteral("RELEASE SAVEPOINT ") + kSavepoint);
}

// A savepoint for every statement of a read scope would be too expensive, and without one the snapshot is lost: start a
// new one with an empty cache.
void OdbcSession::Recover(bool savepoint) noexcept {
    try {
        if (savepoint) return RunNative(QStringLiteral("ROLLBACK TO SAVEPOINT ") + kSavepoint);
        if (!scope_) return;
        EndReadScope();
        BeginReadScope();
    } catch (const DatabaseError&) {
        // Connection lost; the next statement reports it.
    }
}

std::shared_ptr<ResultTable> OdbcSession::Read(const QString& sql, Failure failure) {
    const AdaptedStatement adapted = Adapted(sql);
    std::shared_ptr<ResultTable> rows;
    const auto read = [&] {
        OdbcStatement statement = connection_.Run(adapted.text, engine_.fetch != OdbcFetch::Utf16Pieces);
        const RunningStatement running(connection_, statement);
        return ReadOdbcRows(statement, engine_.fetch);
    };
    Guarded([&] { rows = connection_.InTime(read); }, failure);
    return adapted.order.isEmpty() ? rows : SortRows(*rows, adapted.order, adapted.limit);
}

std::shared_ptr<ResultTable> OdbcSession::Query(const QString& sql) {
    if (!scope_) return Read(sql);
    if (auto known = queryCache_.Find(sql)) return known;
    lifted_.Lift(sql);
    if (auto copied = lookupCache_.Find(sql, lifted_)) return copied;
    auto rows = Read(sql);
    // A lost server has ended the scope.
    if (scope_) queryCache_.Keep(sql, rows, UseOf(lifted_.Text()));
    return rows;
}

// Statements that differ only in literals share one entry.
const std::shared_ptr<StatementUse>& OdbcSession::UseOf(const QString& lifted) {
    std::shared_ptr<StatementUse>& use = uses_[lifted];
    if (use == nullptr) use = std::make_shared<StatementUse>();
    return use;
}

// Inside the scope's read-only transaction a write would fail, or be invisible to others until the scope ends.
void OdbcSession::Execute(const QString& sql) {
    EndReadScope();
    const AdaptedStatement adapted = Adapted(sql);
    Guarded([&] { RunNative(adapted.text); });
}

void OdbcSession::BeginTransaction() {
    CheckUsable();
    EndReadScope();
    if (engine_.beginWriting.isEmpty())
        SetAutomaticCommit(false);
    else
        RunNative(engine_.beginWriting);
    transaction_ = true;
}

void OdbcSession::CommitTransaction() { EndTransaction(true); }

void OdbcSession::RollBackTransaction() { EndTransaction(false); }

void OdbcSession::EndTransaction(bool keep) {
    transaction_ = false;
    if (!engine_.beginWriting.isEmpty()) return RunNative(keep ? QStringLiteral("COMMIT") : QStringLiteral("ROLLBACK"));
    CheckUsable();
    EndDriversTransaction(keep);
}

// After a failed commit the caller rolls back. Switching to automatic commit before that would commit.
void OdbcSession::EndDriversTransaction(bool keep) {
    usable_ = keep;
    connection_.InTime([&] {
        const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, connection_.Get(), keep ? SQL_COMMIT : SQL_ROLLBACK);
        if (!SQL_SUCCEEDED(result)) throw OdbcFailure(SQL_HANDLE_DBC, connection_.Get());
    });
    usable_ = false;
    SetAutomaticCommit(true);
    usable_ = true;
}

void OdbcSession::CheckUsable() const {
    if (!usable_)
        throw DatabaseError(kEngineFailure,
                            QStringLiteral("トランザクションを終えられなかったため、この接続は使えません。"));
}

void OdbcSession::SetAutomaticCommit(bool on) const {
    const SQLULEN value = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
    connection_.InTime([&] {
        const SQLRETURN result =
            SQLSetConnectAttr(connection_.Get(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(value), 0);
        if (!SQL_SUCCEEDED(result)) throw OdbcFailure(SQL_HANDLE_DBC, connection_.Get());
    });
}

bool OdbcSession::BeginReadScope() noexcept {
    if (scope_ || transaction_ || engine_.beginReading.isEmpty()) return false;
    try {
        for (const QString& statement : engine_.beginReading) RunNative(statement);
        scope_ = true;
    } catch (const DatabaseError&) {
        scope_ = false;
    }
    return scope_;
}

void OdbcSession::EndReadScope() noexcept {
    if (!scope_) return;
    scope_ = false;
    queryCache_.Forget();
    lookupCache_.Forget();
    try {
        RunNative(QStringLiteral("ROLLBACK"));
    } catch (const DatabaseError&) {
        // Connection lost, and the scope with it.
    }
}

}  // namespace database
