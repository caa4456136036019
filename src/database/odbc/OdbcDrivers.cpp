#include "database/odbc/OdbcDrivers.h"

#include <algorithm>
#include <array>

#include "database/odbc/OdbcHandle.h"
#include "text/mod項目編集.h"

namespace database {
namespace {

struct KindWord {
    QLatin1StringView part;
    OdbcKind kind;
};

// Substrings of driver names and of library file names.
constexpr std::array<KindWord, 12> kKindWords = {{
    {QLatin1StringView("postgres"), OdbcKind::PostgreSql},
    {QLatin1StringView("psqlodbc"), OdbcKind::PostgreSql},
    {QLatin1StringView("maria"), OdbcKind::MariaDb},
    {QLatin1StringView("maodbc"), OdbcKind::MariaDb},
    {QLatin1StringView("mysql"), OdbcKind::MariaDb},
    {QLatin1StringView("myodbc"), OdbcKind::MariaDb},
    {QLatin1StringView("sql server"), OdbcKind::SqlServer},
    {QLatin1StringView("msodbcsql"), OdbcKind::SqlServer},
    {QLatin1StringView("freetds"), OdbcKind::SqlServer},
    {QLatin1StringView("tdsodbc"), OdbcKind::SqlServer},
    {QLatin1StringView("oracle"), OdbcKind::Oracle},
    {QLatin1StringView("sqora"), OdbcKind::Oracle},
}};

struct ProviderDrivers {
    QLatin1StringView prefix;
    const char* drivers;  // separated by "|"; empty: the data source determines the driver
};

constexpr const char* kPostgreSql = "PostgreSQL Unicode";
constexpr const char* kMariaDb = "MariaDB Unicode|MySQL ODBC 8.0 Unicode Driver";
constexpr const char* kSqlServer = "ODBC Driver 18 for SQL Server|ODBC Driver 17 for SQL Server|FreeTDS";

constexpr std::array<ProviderDrivers, 3> kExactProviders = {{
    {QLatin1StringView("PostgreSQL"), kPostgreSql},
    {QLatin1StringView("MariaDB"), kMariaDb},
    {QLatin1StringView("MySQL"), kMariaDb},
}};

constexpr std::array<ProviderDrivers, 11> kProviders = {{
    {QLatin1StringView("PostgreSQL OLE DB Provider"), kPostgreSql},
    {QLatin1StringView("PGNP"), kPostgreSql},
    {QLatin1StringView("PGOLEDB"), kPostgreSql},
    {QLatin1StringView("MySQLProv"), kMariaDb},
    {QLatin1StringView("OleMySql"), kMariaDb},
    {QLatin1StringView("SQLOLEDB"), kSqlServer},
    {QLatin1StringView("SQLNCLI"), kSqlServer},
    {QLatin1StringView("MSOLEDBSQL"), kSqlServer},
    {QLatin1StringView("OraOLEDB"), "Oracle"},
    {QLatin1StringView("MSDAORA"), "Oracle"},
    {QLatin1StringView("MSDASQL"), ""},
}};

// Lists drivers or data sources: each name, and its description. For a data source that is its driver; for a driver a
// sequence of "Driver=library" texts, each NUL-terminated.
using Lister = SQLRETURN (*)(SQLHENV, SQLUSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*, SQLWCHAR*, SQLSMALLINT,
                             SQLSMALLINT*);

QList<std::pair<QString, QString>> Listed(Lister list) {
    const OdbcEnvironment environment(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
    environment.Check(
        SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
    QList<std::pair<QString, QString>> entries;
    std::array<SQLWCHAR, 512> name{}, more{};
    SQLSMALLINT nameUnits = 0, moreUnits = 0;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    const auto text = [](const std::array<SQLWCHAR, 512>& units, qsizetype count) {
        return QString::fromUtf16(reinterpret_cast<const char16_t*>(units.data()), count);
    };
    while (SQL_SUCCEEDED(list(environment.Get(), direction, name.data(), name.size(), &nameUnits, more.data(),
                              more.size(), &moreUnits))) {
        const auto capacity = static_cast<qsizetype>(more.size()) - 1;
        entries.append({text(name, -1), text(more, std::clamp<qsizetype>(moreUnits, 0, capacity))});
        direction = SQL_FETCH_NEXT;
    }
    return entries;
}

OdbcKind KindOfName(const QString& name) {
    const auto word = std::find_if(kKindWords.begin(), kKindWords.end(), [&](const KindWord& entry) {
        return name.contains(entry.part, Qt::CaseInsensitive);
    });
    return word == kKindWords.end() ? OdbcKind::Other : word->kind;
}

// A null string if the driver is not installed.
QString LibraryOf(const QString& driver) {
    const QString field = QStringLiteral("Driver=");
    for (const auto& [name, attributes] : Listed(&SQLDriversW))
        if (name.compare(driver, Qt::CaseInsensitive) == 0)
            for (const QString& attribute : attributes.split(QChar(0)))
                if (attribute.startsWith(field, Qt::CaseInsensitive)) return attribute.sliced(field.size());
    return {};
}

[[noreturn]] void ThrowNoDriver(const QString& provider, const QStringList& drivers) {
    const QString wanted = drivers.join(QStringLiteral("」「"));
    throw DatabaseError(kProviderNotFound,
                        QStringLiteral("プロバイダー「%1」の ODBC ドライバー「%2」がインストールされていません。")
                            .arg(provider, wanted));
}

// Empty list: the data source determines the driver.
QStringList DriversOf(const QString& provider) {
    if (provider.isEmpty()) throw DatabaseError(kProviderNotFound, QStringLiteral("プロバイダー名がありません。"));
    for (const ProviderDrivers& entry : kExactProviders)
        if (provider.compare(entry.prefix, Qt::CaseInsensitive) == 0)
            return QString::fromLatin1(entry.drivers).split(u'|');
    for (const ProviderDrivers& entry : kProviders)
        if (provider.startsWith(entry.prefix, Qt::CaseInsensitive))
            return QString::fromLatin1(entry.drivers).split(u'|', Qt::SkipEmptyParts);
    return {provider};
}

QString InstalledDriver(const QString& provider) {
    const QStringList wanted = DriversOf(provider);
    if (wanted.isEmpty())
        throw DatabaseError(kProviderNotFound,
                            QStringLiteral("プロバイダー「%1」にはデータソース名が必要です。").arg(provider));
    const QStringList installed = InstalledOdbcDrivers();
    for (const QString& driver : wanted)
        for (const QString& name : installed)
            if (name.compare(driver, Qt::CaseInsensitive) == 0) return name;
    ThrowNoDriver(provider, wanted);
}

// The port follows the last "," or ":", except in an IPv6 address without brackets.
std::pair<QString, QString> ServerAndPort(const QString& server) {
    const qsizetype comma = server.lastIndexOf(u','), colon = server.lastIndexOf(u':');
    const bool bareAddress = server.count(u':') > 1 && !server.contains(u']');
    const qsizetype at = comma >= 0 ? comma : bareAddress ? -1 : colon;
    if (at < 0 || server.endsWith(u']')) return {server, QString()};
    return {TrimBlanks(server.first(at)), TrimBlanks(server.sliced(at + 1))};
}

QString ByServer(const ConnectionRequest& request, OdbcKind kind, const QString& driver) {
    const auto [server, port] = ServerAndPort(request.dataSource);
    const bool portInServer = kind == OdbcKind::SqlServer && !driver.contains(u"FreeTDS", Qt::CaseInsensitive);
    QString text = OdbcField(QStringLiteral("Driver"), driver);
    text += OdbcField(QStringLiteral("Server"), portInServer && !port.isEmpty() ? server + u',' + port : server);
    if (!portInServer && !port.isEmpty()) text += OdbcField(QStringLiteral("Port"), port);
    return text + OdbcField(QStringLiteral("Database"), request.initialCatalog);
}

constexpr int kGrace = 5;         // seconds for a working server to abort the statement and report it
constexpr int kDriversGrace = 7;  // for a driver's own timeout: later, so that the watchdog's message is shown

int WithGrace(int commandTimeout, int grace) { return commandTimeout > 0 ? commandTimeout + grace : 0; }

// Settings that the provider requires, whatever the site has configured. PostgreSQL: the driver must not add savepoints
// (the session does), and a dead network or a server that accepts no more data must be detected within the statement
// timeout. MariaDB: the driver must not reconnect, since the new session would lack our settings, and the attempt
// crashes the driver.
QString OwnFields(const ConnectionRequest& request, OdbcKind kind) {
    switch (kind) {
        case OdbcKind::PostgreSql:
            return QStringLiteral("Protocol=7.4-0;UseDeclareFetch=0;pqopt={keepalives=1 tcp_user_timeout=%1};")
                .arg(request.commandTimeout * qint64{1000});
        case OdbcKind::MariaDb:
            return QStringLiteral("CHARSET=utf8mb4;AUTO_RECONNECT=0;CONN_TIMEOUT=%1;READ_TIMEOUT=%2;WRITE_TIMEOUT=%2;")
                .arg(request.connectionTimeout)
                .arg(WithGrace(request.commandTimeout, kDriversGrace));
        default:
            return {};
    }
}

// Drivers trim unbraced values.
bool HasSpaceAtAnEnd(const QString& value) {
    return !value.isEmpty() && (value.front().isSpace() || value.back().isSpace());
}

}  // namespace

OdbcKind KindOfDriver(const QString& driver) {
    const OdbcKind named = KindOfName(driver);
    return named == OdbcKind::Other ? KindOfName(LibraryOf(driver)) : named;
}

int AnswerSeconds(const ConnectionRequest& request) { return WithGrace(request.commandTimeout, kGrace); }

QStringList InstalledOdbcDrivers() {
    QStringList names;
    for (const auto& [name, attributes] : Listed(&SQLDriversW)) names.append(name);
    return names;
}

QString DriverOfDataSource(const QString& name) {
    for (const auto& [source, driver] : Listed(&SQLDataSourcesW))
        if (source.compare(name, Qt::CaseInsensitive) == 0) return driver;
    return {};
}

QString OdbcField(const QString& name, const QString& value) {
    const auto means = [](QChar unit) { return QStringView(u"[]{}(),;?*=!@").contains(unit); };
    const bool plain = std::none_of(value.begin(), value.end(), means) && !HasSpaceAtAnEnd(value);
    if (plain) return name + u'=' + value + u';';
    QString inside = value;
    return name + QStringLiteral("={") + inside.replace(u'}', QStringLiteral("}}")) + QStringLiteral("};");
}

QString OdbcConnectionText(const ConnectionRequest& request) {
    const bool byServer = !request.initialCatalog.isNull();
    QString text;
    OdbcKind kind = OdbcKind::Other;
    if (byServer) {
        const QString driver = InstalledDriver(request.provider);
        kind = KindOfDriver(driver);
        text = ByServer(request, kind, driver);
    } else {
        if (!DriversOf(request.provider).isEmpty()) InstalledDriver(request.provider);
        const QString driver = DriverOfDataSource(request.dataSource);
        if (driver.isNull())
            throw DatabaseError(
                kEngineFailure,
                QStringLiteral("データソース「%1」が ODBC に登録されていません。").arg(request.dataSource));
        kind = KindOfDriver(driver);
        text = OdbcField(QStringLiteral("DSN"), request.dataSource);
    }
    if (!request.userId.isEmpty()) text += OdbcField(QStringLiteral("UID"), request.userId);
    if (!request.password.isEmpty()) text += OdbcField(QStringLiteral("PWD"), request.password);
    return text + OwnFields(request, kind);
}

}  // namespace database
