// Dialect O: ODBC data sources, and outer joins written with (+).

#include <QFile>

#include "data/Recordsets.h"
#include "servers/ServerFixture.h"
#include "setup/RunTool.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;

namespace {

/// An ODBC data source that only this test knows.
class ByDataSource : public OnServer {
  protected:
    ByDataSource() : kept_(qgetenv("ODBCINI")) {
        DefineSource(server.Name(), ServerDatabase::Provider());
        qputenv("ODBCINI", File().toUtf8());
    }
    ~ByDataSource() override { qputenv("ODBCINI", kept_); }

    QString File() const { return installation.Root() + u"/odbc.ini"_s; }
    /// The driver manager caches data sources by name: a different driver needs a different name.
    void DefineSource(const QString& name, const QString& driver, const QString& more = {}) {
        source_ = name;
        WriteBytes(File(),
                   u"[%1]\nDriver = %2\nServer = 127.0.0.1\nServername = 127.0.0.1\nPort = %3\nDatabase = %4\n%5\n"_s
                       .arg(name, driver, ServerDatabase::Server().section(u':', -1), server.Name(), more)
                       .toUtf8());
    }
    /// Path of a library loaded by this process, such as the driver of its connections.
    static QString LoadedLibrary(const QString& name) {
        for (const QString& line : QString::fromUtf8(ReadBytes(u"/proc/self/maps"_s)).split(u'\n'))
            if (line.endsWith(name)) return line.sliced(line.indexOf(u'/'));
        ADD_FAILURE() << name.toStdString() << " is not loaded";
        return {};
    }
    void UseSource() const {
        const ToolOutput used = RunServerTool({u"use-server"_s, installation.Root(), u"--odbc"_s, OdbcString()});
        ASSERT_EQ(used.status, 0) << used.err.toStdString();
    }
    QString OdbcString() const {
        return u"DSN=%1;UID=%2;PWD=%3"_s.arg(source_, ServerDatabase::User(), ServerDatabase::Password());
    }

  private:
    QString source_;
    QByteArray kept_;
};

}  // namespace

TEST_F(ByDataSource, TheProgramStartsAndSearchesAsByServerAndDatabase) {
    ASSERT_TRUE(OpenGeneral());
    const QStringList byServer = Search();
    UseSource();
    ASSERT_TRUE(OpenGeneral()) << LastHistory().toStdString();
    EXPECT_EQ(Globals().GeneralDatabase.db, u"O"_s);
    EXPECT_FALSE(byServer.isEmpty());
    EXPECT_EQ(Search(), byServer);
}

TEST_F(ByDataSource, TheStaffListsJoinedByTheSignGiveTheRowsOfTheOtherDialects) {
    Globals().ListCondition = u"M担当者.コード >= '00003' OR M担当者.コード = '00001'"_s;
    Globals().Environment.OperatingOfficeCode = Globals().ScopeOfficeCode = u"001"_s;
    const auto rows = [&](int kind) {
        QStringList lines;
        database::Recordset record;
        OpenRecordset(record, BuildStaffListQuery(kind, EveryListCondition()));
        EXPECT_TRUE(record.IsOpen()) << LastHistory().toStdString();
        for (; record.IsOpen() && !record.AtEOF(); record.MoveNext()) {
            QStringList cells;
            for (int column = 0; column < record.FieldCount(); ++column)
                cells.append(record.FieldAt(column).TextOr(u"-"_s));
            lines.append(cells.join(u','));
        }
        // Rows with equal names may be in either order.
        if (kind == kNameSearch || kind == kKanaSearch) lines.sort();
        return lines;
    };
    const QList<int> kinds = {kNegativeSearch, kCompositeSearch,  kCodeSearch,   kKanaSearch,
                              kNameSearch,     kDepartmentSearch, kSectionSearch};
    ASSERT_TRUE(OpenGeneral());
    QList<QStringList> byServer;
    for (const int kind : kinds) byServer.append(rows(kind));
    UseSource();
    ASSERT_TRUE(OpenGeneral());
    EXPECT_TRUE(BuildStaffListQuery(kCompositeSearch, EveryListCondition())
                    .contains(u"M事業所.コード(+) = M担当者.事業所コード"_s));
    int found = 0;
    for (int i = 0; i < kinds.size(); ++i) {
        EXPECT_EQ(rows(kinds[i]), byServer[i]) << kinds[i];
        found += byServer[i].isEmpty() ? 0 : 1;
    }
    EXPECT_GE(found, 4);
}

TEST_F(ByDataSource, OneThatWouldConnectAnewStaysGoneWithItsServerHoweverItNamesItsDriver) {
    const QString library = LoadedLibrary(IsPostgres() ? u"/psqlodbcw.so"_s : u"/libmaodbc.so"_s);
    for (const QString& driver : {ServerDatabase::Provider(), library}) {
        SCOPED_TRACE(driver.toStdString());
        DefineSource(server.Name() + QString::number(driver.size()), driver, u"AUTO_RECONNECT = 1\nOPTION = 4194304"_s);
        UseSource();
        ASSERT_TRUE(OpenGeneral()) << LastHistory().toStdString();
        ASSERT_FALSE(Search().isEmpty());
        StopSessions();
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(Search(), QStringList());
            EXPECT_TRUE(LastHistory().startsWith(u"エラー "_s)) << LastHistory().toStdString();
        }
    }
}

TEST_F(ByDataSource, ADataSourceThatIsNotThereIsNamed) {
    Define(u"db"_s, u"O"_s);
    Define(u"プロバイダ名"_s, u"MSDASQL"_s);
    Define(u"データソース名"_s, u"nirgends"_s);
    EXPECT_FALSE(OpenGeneral());
    EXPECT_EQ(LastHistory(),
              u"エラー DB_OPEN ERROR-2147467259 データソース「nirgends」が ODBC に登録されていません。"_s);
}
