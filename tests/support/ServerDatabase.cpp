#include "support/ServerDatabase.h"

#include <unistd.h>

#include <array>
#include <stdexcept>

#include "database/collation/PostgresFunctions.h"
#include "support/OdbcCalls.h"

using namespace Qt::StringLiterals;

namespace {

bool IsPostgres() { return ServerDatabase::Engine() == u"PostgreSQL"_s; }

QString Port() { return qEnvironmentVariable(IsPostgres() ? "MEIBO_TEST_POSTGRESQL_PORT" : "MEIBO_TEST_MARIADB_PORT"); }

}  // namespace

/// A connection independent of the code under test.
class ServerDatabase::Link {
  public:
    explicit Link(const QString& text) {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
        CheckOdbc(SQL_HANDLE_DBC, connection_,
                  SQLDriverConnectW(connection_, nullptr, OdbcUnits(text), SQL_NTS, nullptr, 0, nullptr,
                                    SQL_DRIVER_NOPROMPT));
    }
    ~Link() {
        SQLDisconnect(connection_);
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    }
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    QList<QStringList> Run(const QString& sql) const {
        SQLHANDLE statement = nullptr;
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        const std::unique_ptr<void, void (*)(SQLHANDLE)> end(
            statement, [](SQLHANDLE handle) { SQLFreeHandle(SQL_HANDLE_STMT, handle); });
        const SQLRETURN result = SQLExecDirectW(statement, OdbcUnits(sql), SQL_NTS);
        CheckOdbc(SQL_HANDLE_STMT, statement, result);
        SQLSMALLINT columns = 0;
        SQLNumResultCols(statement, &columns);
        QList<QStringList> rows;
        while (columns > 0 && SQL_SUCCEEDED(SQLFetch(statement))) rows.append(Row(statement, columns));
        while (SQL_SUCCEEDED(SQLMoreResults(statement))) continue;
        return rows;
    }

  private:
    static QStringList Row(SQLHANDLE statement, SQLSMALLINT columns) {
        QStringList row;
        static std::array<SQLWCHAR, 1 << 20> cell;
        for (SQLUSMALLINT column = 1; column <= columns; ++column) {
            SQLLEN bytes = 0;
            SQLGetData(statement, column, SQL_C_WCHAR, cell.data(), sizeof cell, &bytes);
            // Up to the NUL terminator: one driver reports a length that is too short.
            const QString text = QString::fromUtf16(reinterpret_cast<const char16_t*>(cell.data()));
            row.append(bytes == SQL_NULL_DATA ? QString() : u""_s + text);
        }
        return row;
    }

    SQLHANDLE environment_ = nullptr;
    SQLHANDLE connection_ = nullptr;
};

namespace {

QString LinkText(const QString& database) {
    return u"Driver=%1;Server=127.0.0.1;Port=%2;Database=%3;UID=%4;PWD=%5;%6"_s.arg(
        ServerDatabase::Provider(), Port(), database, ServerDatabase::User(), ServerDatabase::Password(),
        // Enables several statements in one text on MariaDB.
        IsPostgres() ? QString() : u"CHARSET=utf8mb4;OPTION=67108864"_s);
}

QString NextName() {
    static int count = 0;
    return u"t%1_%2"_s.arg(getpid()).arg(++count);
}

}  // namespace

QString ServerDatabase::Engine() { return qEnvironmentVariable("MEIBO_TEST_ENGINE"); }
QString ServerDatabase::Server() { return u"127.0.0.1:"_s + Port(); }
QString ServerDatabase::User() { return u"suite"_s; }
QString ServerDatabase::Password() { return u"ひみつ'1"_s; }
QString ServerDatabase::Provider() { return IsPostgres() ? u"PostgreSQL Unicode"_s : u"MariaDB Unicode"_s; }

ServerDatabase::ServerDatabase() : name_(NextName()) {
    Link(LinkText(IsPostgres() ? u"postgres"_s : u"mysql"_s)).Run(u"CREATE DATABASE "_s + name_);
    link_ = std::make_unique<Link>(LinkText(name_));
    if (!IsPostgres())
        Run(u"SET SESSION sql_mode = 'ANSI_QUOTES,NO_BACKSLASH_ESCAPES,STRICT_TRANS_TABLES'"_s);
    else
        for (const QString& function : database::PostgresTextFunctions()) link_->Run(function);
}

ServerDatabase::~ServerDatabase() {
    link_.reset();
    try {
        Link(LinkText(IsPostgres() ? u"postgres"_s : u"mysql"_s))
            .Run(u"DROP DATABASE "_s + name_ + (IsPostgres() ? u" WITH (FORCE)"_s : QString()));
    } catch (const std::runtime_error&) {
        // The test may have stopped the server.
    }
}

void ServerDatabase::Run(const QString& statements) const { link_->Run(statements); }

bool ServerDatabase::TryOutside(const QString& statement) const {
    const Link other(LinkText(name_));
    other.Run(IsPostgres() ? u"SET lock_timeout = 50"_s : u"SET SESSION innodb_lock_wait_timeout = 0"_s);
    try {
        other.Run(statement);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

QList<QStringList> ServerDatabase::Rows(const QString& sql) const { return link_->Run(sql); }

QString ServerDatabase::ConnectionString(const QString& user, const QString& password) const {
    return u"Provider=%1;User ID=%2;Password=%3;Data Source=%4;Initial Catalog=%5;"_s.arg(Provider(), user, password,
                                                                                          Server(), name_);
}

QString ServerDatabase::OdbcString() const {
    return u"Driver=%1;Server=127.0.0.1;Port=%2;Database=%3;UID=%4;PWD=%5"_s.arg(Provider(), Port(), name_, User(),
                                                                                 Password());
}
