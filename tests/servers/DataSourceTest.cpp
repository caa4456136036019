// Dialect O: a data source of the driver manager, and joins by the sign.

#include <QFile>

#include "data/Recordsets.h"
#include "selection/StaffListQuery.h"
#include "servers/ServerFixture.h"
#include "setup/RunTool.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;

namespace {

/// A data source that is known to this test alone.
class ByDataSource : public OnServer {
  protected:
    ByDataSource() : kept_(qgetenv("ODBCINI")) {
        const QString file = installation.Root() + u"/odbc.ini"_s;
        WriteBytes(file, u"[%3]\nDriver = %1\nServer = 127.0.0.1\nServername = 127.0.0.1\nPort = %2\nDatabase = %3\n"_s
                             .arg(ServerDatabase::Provider(), ServerDatabase::Server().section(u':', -1), server.Name())
                             .toUtf8());
        qputenv("ODBCINI", file.toUtf8());
    }
    ~ByDataSource() override { qputenv("ODBCINI", kept_); }

    QString OdbcString() const {
        return u"DSN=%1;UID=%2;PWD=%3"_s.arg(server.Name(), ServerDatabase::User(), ServerDatabase::Password());
    }

  private:
    QByteArray kept_;
};

}  // namespace

TEST_F(ByDataSource, TheProgramStartsAndSearchesAsByServerAndDatabase) {
    ASSERT_TRUE(OpenGeneral());
    const QStringList byServer = Search();
    const ToolOutput used = RunServerTool({u"use-server"_s, installation.Root(), u"--odbc"_s, OdbcString()});
    ASSERT_EQ(used.status, 0) << used.err.toStdString();
    ASSERT_TRUE(OpenGeneral()) << LastHistory().toStdString();
    EXPECT_EQ(Globals().GeneralDatabase.db, u"O"_s);
    EXPECT_FALSE(byServer.isEmpty());
    EXPECT_EQ(Search(), byServer);
}

TEST_F(ByDataSource, TheStaffListsJoinedByTheSignGiveTheRowsOfTheOtherDialects) {
    StaffListConditions conditions;
    conditions.allEnrolments = 2;
    conditions.allEmployees = conditions.employeeClass = 6;
    conditions.name = u"山"_s;
    const auto rows = [&] {
        QStringList lines;
        platform::Recordset record;
        if (!OpenRecordset(record, BuildStaffListQuery(kCompositeSearch, conditions), false)) return lines;
        for (; !record.AtEOF(); record.MoveNext()) {
            QStringList cells;
            for (int column = 0; column < record.FieldCount(); ++column)
                cells.append(record.FieldAt(column).TextOr(u"-"_s));
            lines.append(cells.join(u','));
        }
        return lines;
    };
    ASSERT_TRUE(OpenGeneral());
    const QStringList byServer = rows();
    const ToolOutput used = RunServerTool({u"use-server"_s, installation.Root(), u"--odbc"_s, OdbcString()});
    ASSERT_EQ(used.status, 0) << used.err.toStdString();
    ASSERT_TRUE(OpenGeneral());
    EXPECT_TRUE(
        BuildStaffListQuery(kCompositeSearch, conditions).contains(u"M事業所.コード(+) = M担当者.事業所コード"_s));
    EXPECT_FALSE(byServer.isEmpty());
    EXPECT_EQ(rows(), byServer);
}

TEST_F(ByDataSource, ADataSourceThatIsNotThereIsNamed) {
    Define(u"db"_s, u"O"_s);
    Define(u"プロバイダ名"_s, u"MSDASQL"_s);
    Define(u"データソース名"_s, u"nirgends"_s);
    EXPECT_FALSE(OpenGeneral());
    EXPECT_EQ(LastHistory(),
              u"エラー DB_OPEN ERROR-2147467259 データソース「nirgends」が ODBC に登録されていません。"_s);
}
