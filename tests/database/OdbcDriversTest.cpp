#include "database/odbc/OdbcDrivers.h"

#include <gtest/gtest.h>

#include "database/DatabaseFile.h"
#include "database/DatabaseSession.h"
#include "database/OwnDrivers.h"
#include "database/odbc/OdbcHandle.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

class OdbcDrivers : public testing::Test {
  protected:
    static QString TextOf(const QString& connectionString) {
        ConnectionRequest request = ParseConnectionString(connectionString);
        request.connectionTimeout = 60;
        request.commandTimeout = 30000;
        return OdbcConnectionText(request);
    }
    static QString OnServer(const QString& provider, const QString& server) {
        return TextOf(u"Provider=%1;User ID=u;Password=p;Data Source=%2;Initial Catalog=d;"_s.arg(provider, server));
    }

  private:
    OwnDrivers lists_;
};

const QString kPostgres = u"Protocol=7.4-0;UseDeclareFetch=0;pqopt={keepalives=1 tcp_user_timeout=30000000};"_s;
const QString kMariaDb = u"CHARSET=utf8mb4;AUTO_RECONNECT=0;CONN_TIMEOUT=60;READ_TIMEOUT=30007;WRITE_TIMEOUT=30007;"_s;

}  // namespace

TEST_F(OdbcDrivers, KnownProvidersHaveTheirDriver) {
    for (const QString& provider :
         {u"PostgreSQL"_s, u"postgresql ole db provider"_s, u"PGNP.1"_s, u"PostgreSQL Unicode"_s})
        EXPECT_EQ(OnServer(provider, u"host"_s),
                  u"Driver=PostgreSQL Unicode;Server=host;Database=d;UID=u;PWD=p;"_s + kPostgres);
    for (const QString& provider : {u"MariaDB"_s, u"MySQLProv"_s, u"OleMySql.MySqlSource"_s})
        EXPECT_EQ(OnServer(provider, u"host"_s),
                  u"Driver=MariaDB Unicode;Server=host;Database=d;UID=u;PWD=p;"_s + kMariaDb);
    EXPECT_EQ(OnServer(u"SQLOLEDB.1"_s, u"host,1433"_s),
              u"Driver=FreeTDS;Server=host;Port=1433;Database=d;UID=u;PWD=p;"_s);
}

TEST_F(OdbcDrivers, AnyOtherProviderIsTheNameOfADriver) {
    EXPECT_EQ(OnServer(u"site driver"_s, u"host"_s), u"Driver=Site Driver;Server=host;Database=d;UID=u;PWD=p;"_s);
}

TEST_F(OdbcDrivers, WhereItsNameTellsNothingADriverIsKnownByItsLibrary) {
    EXPECT_EQ(OnServer(u"House Driver"_s, u"host"_s),
              u"Driver=House Driver;Server=host;Database=d;UID=u;PWD=p;"_s + kPostgres);
    EXPECT_EQ(TextOf(u"Provider=MSDASQL;Data Source=house;"_s), u"DSN=house;"_s + kPostgres);
    EXPECT_EQ(TextOf(u"Provider=MSDASQL;Data Source=library;"_s), u"DSN=library;"_s + kMariaDb);
    EXPECT_EQ(KindOfDriver(u"/opt/microsoft/libmsodbcsql-18.so"_s), OdbcKind::SqlServer);
    EXPECT_EQ(KindOfDriver(u"/opt/oracle/libsqora.so.21.1"_s), OdbcKind::Oracle);
    EXPECT_EQ(KindOfDriver(u"Site Driver"_s), OdbcKind::Other);
}

TEST_F(OdbcDrivers, AnswersAreWaitedForLongerThanStatementsMayRunAndForEverWithoutATimeOut) {
    ConnectionRequest request;
    request.commandTimeout = 30000;
    EXPECT_EQ(AnswerSeconds(request), 30005);
    request = ParseConnectionString(u"Provider=MariaDB;Data Source=h;Initial Catalog=d;"_s);
    request.commandTimeout = 0;
    EXPECT_EQ(AnswerSeconds(request), 0);
    EXPECT_TRUE(OdbcConnectionText(request).endsWith(u"READ_TIMEOUT=0;WRITE_TIMEOUT=0;"_s));
}

TEST_F(OdbcDrivers, APortStandsBehindTheServer) {
    const auto part = [](const QString& server) { return OnServer(u"MariaDB"_s, server).section(u';', 1, 2); };
    EXPECT_EQ(part(u"db.example:3307"_s), u"Server=db.example;Port=3307"_s);
    EXPECT_EQ(part(u"db.example,3307"_s), u"Server=db.example;Port=3307"_s);
    EXPECT_EQ(part(u"fe80::1"_s), u"Server=fe80::1;Database=d"_s);
    EXPECT_EQ(part(u"db.example"_s), u"Server=db.example;Database=d"_s);
}

TEST_F(OdbcDrivers, ValuesWithSignsStandInBraces) {
    EXPECT_EQ(OdbcField(u"PWD"_s, u"a}b;c"_s), u"PWD={a}}b;c};"_s);
    EXPECT_EQ(OdbcField(u"PWD"_s, u" a"_s), u"PWD={ a};"_s);
    EXPECT_EQ(OdbcField(u"UID"_s, u"山田"_s), u"UID=山田;"_s);
    EXPECT_EQ(TextOf(u"Provider=MariaDB;User ID=;Password=;Data Source=h;Initial Catalog=;"_s),
              u"Driver=MariaDB Unicode;Server=h;Database=;"_s + kMariaDb);
}

TEST_F(OdbcDrivers, WithoutACatalogueTheDataSourceIsMeant) {
    EXPECT_EQ(TextOf(u"Provider=MSDASQL;User ID=u;Password=;Data Source=staff;"_s), u"DSN=staff;UID=u;"_s + kPostgres);
    EXPECT_EQ(ErrorOf([] { TextOf(u"Provider=MSDASQL;Data Source=nirgends"_s); }),
              u"データソース「nirgends」が ODBC に登録されていません。"_s);
}

TEST_F(OdbcDrivers, WhatIsNotInstalledIsNamed) {
    EXPECT_EQ(ErrorOf([] { OnServer(u"OraOLEDB.Oracle"_s, u"h"_s); }),
              u"プロバイダー「OraOLEDB.Oracle」の ODBC ドライバー「Oracle」がインストールされていません。"_s);
    EXPECT_EQ(ErrorOf([] { OnServer(u"MSDASQL"_s, u"h"_s); }),
              u"プロバイダー「MSDASQL」にはデータソース名が必要です。"_s);
    EXPECT_EQ(NumberOf([] { OnServer(u""_s, u"h"_s); }), kProviderNotFound);
    EXPECT_EQ(NumberOf([] { OnServer(u"NoSuch"_s, u"h"_s); }), kProviderNotFound);
}

TEST_F(OdbcDrivers, ADriverWhoseFileIsGoneFailsWithTheManagersWords) {
    Connection connection;
    const QString words = ErrorOf(
        [&] { connection.Open(u"Provider=Site Driver;User ID=;Password=;Data Source=h;Initial Catalog=d;"_s); });
    EXPECT_TRUE(words.contains(u"/nowhere/none.so"_s)) << words.toStdString();
    EXPECT_FALSE(words.startsWith(u'['));
}

TEST(OdbcStates, HaveTheNumbersOfTheSuite) {
    EXPECT_EQ(NumberOfOdbcState(u"42601", 1), kStatementFailure);
    EXPECT_EQ(NumberOfOdbcState(u"42501", 1), kPermissionDenied);
    EXPECT_EQ(NumberOfOdbcState(u"25006", 1), kPermissionDenied);
    EXPECT_EQ(NumberOfOdbcState(u"42000", 1142), kPermissionDenied);
    EXPECT_EQ(NumberOfOdbcState(u"23505", 7), kIntegrityViolation);
    EXPECT_EQ(NumberOfOdbcState(u"28P01", 1), kLoginFailed);
    EXPECT_EQ(NumberOfOdbcState(u"HY000", 1045), kLoginFailed);
    EXPECT_EQ(NumberOfOdbcState(u"08S01", 35), kEngineFailure);
}
