#include "database/odbc/OdbcHandle.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace database {
namespace {

struct StateNumber {
    QLatin1StringView state;  // or a prefix
    long number;
};

// The first match is used.
constexpr std::array<StateNumber, 7> kStates = {{
    {QLatin1StringView("25006"), kPermissionDenied},
    {QLatin1StringView("42501"), kPermissionDenied},
    {QLatin1StringView("28"), kLoginFailed},
    {QLatin1StringView("23"), kIntegrityViolation},
    {QLatin1StringView("22"), kStatementFailure},
    {QLatin1StringView("42"), kStatementFailure},
    {QLatin1StringView("07"), kStatementFailure},
}};

// MariaDB's native codes; their SQLSTATEs are less specific.
constexpr std::array<long, 7> kMariaDbRefusals = {1044, 1142, 1143, 1227, 1290, 1370, 1792};
constexpr long kMariaDbLoginFailed = 1045;

struct StateText {
    QLatin1StringView state;  // a prefix
    const char* explanation;
};

// The first match is used; error numbers take precedence.
constexpr StateText kExplanations[] = {
    {QLatin1StringView("08"), "サーバーに接続できません。"},
    {QLatin1StringView("57"), "サーバーが停止しました。"},
    {QLatin1StringView("HYT"), "サーバーが時間内に応答しません。"},
    {QLatin1StringView("IM"), "ODBC ドライバーを使えません。"},
    {QLatin1StringView("53"), "サーバーの資源が足りません。"},
    {QLatin1StringView("HY001"), "メモリーが足りません。"},
};

QString Explanation(long number, const QString& state) {
    switch (number) {
        case kPermissionDenied:
            return QStringLiteral("データベースを使う権限がありません。");
        case kLoginFailed:
            return QStringLiteral("サーバーがユーザー ID またはパスワードを受け付けません。");
        case kIntegrityViolation:
            return QStringLiteral("データベースの規則に反する値です。");
        case kStatementFailure:
            return QStringLiteral("SQL 文を実行できません。");
        default:
            break;
    }
    for (const StateText& row : kExplanations)
        if (state.startsWith(row.state)) return QString::fromUtf8(row.explanation);
    return QStringLiteral("データベースのサーバーに問題が発生しました。");
}

struct Diagnosis {
    QString state, text;
    long code = 0;
};

// Removes prefixes such as "[unixODBC][Driver Manager]", and the driver's note that a query was being executed.
QString WithoutComponents(QString text) {
    while (text.startsWith(u'[') && text.contains(u']')) text = text.sliced(text.indexOf(u']') + 1);
    const qsizetype remark = text.indexOf(QStringLiteral(";\nError while executing the query"));
    if (remark >= 0) text.truncate(remark);
    return text.replace(u'\n', u' ').trimmed();
}

QList<Diagnosis> Diagnoses(SQLSMALLINT type, SQLHANDLE handle) {
    QList<Diagnosis> found;
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 2048> text{};
    for (SQLSMALLINT record = 1;; ++record) {
        SQLINTEGER code = 0;
        SQLSMALLINT size = 0;
        const SQLRETURN result =
            SQLGetDiagRecW(type, handle, record, state.data(), &code, text.data(), text.size(), &size);
        if (!SQL_SUCCEEDED(result)) return found;
        // NUL-terminated: MariaDB's driver reports too great a length for text that is not ASCII.
        text.back() = 0;
        found.append({QString::fromUtf16(reinterpret_cast<const char16_t*>(state.data()), 5),
                      WithoutComponents(QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()))), code});
    }
}

}  // namespace

long NumberOfOdbcState(QStringView state, long code) {
    if (std::find(kMariaDbRefusals.begin(), kMariaDbRefusals.end(), code) != kMariaDbRefusals.end())
        return kPermissionDenied;
    if (code == kMariaDbLoginFailed) return kLoginFailed;
    const auto row = std::find_if(kStates.begin(), kStates.end(),
                                  [&](const StateNumber& entry) { return state.startsWith(entry.state); });
    return row == kStates.end() ? kEngineFailure : row->number;
}

EngineError OdbcFailure(SQLSMALLINT type, SQLHANDLE handle) {
    const QList<Diagnosis> diagnoses = Diagnoses(type, handle);
    const QString unknown = QStringLiteral("ODBC ドライバーが理由を示しませんでした。");
    if (diagnoses.isEmpty()) return {kEngineFailure, unknown, Explanation(kEngineFailure, {})};
    QStringList texts;
    for (const Diagnosis& diagnosis : diagnoses)
        if (!diagnosis.text.isEmpty()) texts.append(diagnosis.text);
    texts.removeDuplicates();
    const Diagnosis& first = diagnoses.first();
    const long number = NumberOfOdbcState(first.state, first.code);
    return {number, texts.join(u' '), Explanation(number, first.state)};
}

namespace {

OdbcEnvironment MakeEnvironment() {
    OdbcEnvironment environment(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
    // ODBC passes integer attributes as pointers.
    environment.Check(
        SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
    return environment;
}

SQLPOINTER AsValue(SQLULEN value) { return reinterpret_cast<SQLPOINTER>(value); }

}  // namespace

OdbcConnection::OdbcConnection(const QString& text, int loginSeconds, int answerSeconds)
    : answerSeconds_(answerSeconds),
      watch_(std::make_unique<OdbcWatchdog>()),
      environment_(MakeEnvironment()),
      handle_(SQL_HANDLE_ENV, environment_.Get()) {
    // The result is ignored: a driver without this timeout returns an error, but connects.
    SQLSetConnectAttr(handle_.Get(), SQL_ATTR_LOGIN_TIMEOUT, AsValue(static_cast<SQLULEN>(loginSeconds)), 0);
    handle_.Check(
        SQLDriverConnectW(handle_.Get(), nullptr, OdbcText(text), SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
    watch_->Begin(std::chrono::seconds(answerSeconds));
}

OdbcConnection::~OdbcConnection() {
    if (watch_->CancelIsRunning()) {
        handle_.Abandon();
        environment_.Abandon();
        return;
    }
    const OdbcWatchdog::ScopedCall call(*watch_);
    SQLDisconnect(handle_.Get());
}

void OdbcConnection::ThrowReasonOfShutdown() const {
    switch (watch_->ShutdownReason()) {
        case OdbcWatchdog::Reason::None:
            return;
        case OdbcWatchdog::Reason::Timeout:
            throw DatabaseError(
                kEngineFailure,
                QStringLiteral("サーバーが %1 秒待っても応答しないため、接続を切りました。").arg(answerSeconds_));
        case OdbcWatchdog::Reason::EndOfProgram:
            throw DatabaseError(kEngineFailure,
                                QStringLiteral("プログラムが終了するため、サーバーとの接続を切りました。"));
    }
}

RunningStatement::RunningStatement(const OdbcConnection& connection, OdbcStatement& statement)
    : statement_(statement),
      cancellable_(
          connection.Watchdog(), [](void* handle) { SQLCancel(handle); }, statement.Get()) {}

RunningStatement::~RunningStatement() {
    if (!cancellable_.Finish()) statement_.Abandon();
}

QString OdbcConnection::Information(SQLUSMALLINT which) const {
    std::array<SQLWCHAR, 256> text{};
    SQLSMALLINT length = 0;  // of the whole text, also when it does not fit; the text itself ends with a NUL
    InTime([&] { handle_.Check(SQLGetInfoW(handle_.Get(), which, text.data(), sizeof text, &length)); });
    text.back() = 0;
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()));
}

void OdbcConnection::Execute(OdbcStatement& statement, const QString& sql) const {
    const RunningStatement running(*this, statement);
    // SQL_NTS, since MariaDB's driver reads past an explicit length. A statement never contains a NUL.
    const SQLRETURN result = SQLExecDirectW(statement.Get(), OdbcText(sql), SQL_NTS);
    if (result != SQL_NO_DATA) statement.Check(result);
}

OdbcStatement OdbcConnection::Run(const QString& sql, bool scrollable) const {
    return InTime([&] {
        OdbcStatement statement(SQL_HANDLE_DBC, handle_.Get());
        if (scrollable) SQLSetStmtAttr(statement.Get(), SQL_ATTR_CURSOR_TYPE, AsValue(SQL_CURSOR_STATIC), 0);
        if (statementSeconds_ > 0)
            SQLSetStmtAttr(statement.Get(), SQL_ATTR_QUERY_TIMEOUT, AsValue(static_cast<SQLULEN>(statementSeconds_)),
                           0);
        Execute(statement, sql);
        return statement;
    });
}

}  // namespace database
