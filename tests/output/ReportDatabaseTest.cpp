#include "output/ReportDatabase.h"

#include <QFile>

#include "support/FileBytes.h"
#include "support/OutputFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QString kTable = u"要員名簿照会"_s;
const QString kAll = u"SELECT * FROM 要員名簿照会"_s;

class ReportDatabase : public OutputTest {
  protected:
    QString File() const { return installation.Report().Path(); }
    database::Recordset& Records() const { return Globals().ReportRecordset; }
};

}  // namespace

TEST_F(ReportDatabase, ReadsAndWritesTheWorkTablesOfItsFile) {
    EXPECT_TRUE(OpenReportDatabase());
    EXPECT_TRUE(Globals().ReportDatabase.IsOpen());
    EXPECT_TRUE(ExecuteReportSql(u"INSERT INTO 要員名簿照会 (コード) VALUES ('00007')"_s));
    EXPECT_EQ(WorkColumn(u"コード"_s), QStringList{u"00007"_s});
    CloseReportDatabase();
    EXPECT_FALSE(Globals().ReportDatabase.IsOpen());
}

TEST_F(ReportDatabase, HasTheSettingsOfEveryConnectionAndWaitsForNoDisk) {
    ASSERT_TRUE(OpenReportDatabase());
    const database::Connection& connection = Globals().ReportDatabase;
    EXPECT_EQ(connection.ConnectionTimeout, 60);
    EXPECT_EQ(connection.CommandTimeout, 30000);
    EXPECT_EQ(connection.CursorLocation, database::CursorLocation::Client);
    EXPECT_TRUE(connection.Scratch);
}

TEST_F(ReportDatabase, WithoutAKindIsNotAvailableAndTouchesNothing) {
    for (const int kind : {0, 3, -1}) {
        Globals().Layout.ReportDbKind = static_cast<FileKind>(kind);
        EXPECT_FALSE(OpenReportDatabase()) << kind;
        EXPECT_FALSE(Globals().ReportDatabase.IsOpen());
    }
    EXPECT_TRUE(ErrorRows().isEmpty());
}

TEST_F(ReportDatabase, OfTheOlderKindIsTheOtherFile) {
    ASSERT_TRUE(QFile::rename(File(), installation.ReportFolder() + u"/repdb.mdb"_s));
    EXPECT_NE(FailureOf(OpenReportDatabase).number, 0);
    Globals().Layout.ReportDbKind = FileKind::Mdb;
    EXPECT_TRUE(OpenReportDatabase());
}

TEST_F(ReportDatabase, MissingFileThrowsAndIsNotCreated) {
    ASSERT_TRUE(QFile::remove(File()));
    EXPECT_TRUE(FailureOf(OpenReportDatabase).description.contains(u"見つかりません"_s));
    EXPECT_FALSE(QFile::exists(File()));
}

TEST_F(ReportDatabase, TruncatedFileThrows) {
    const QByteArray whole = ReadBytes(File());
    const auto failure = [&](qsizetype bytes) {
        WriteBytes(File(), whole.first(bytes));
        const QString description = FailureOf(OpenReportDatabase).description;
        EXPECT_FALSE(Globals().ReportDatabase.IsOpen()) << bytes;
        return description;
    };
    const QString name = u"データベース「"_s + File();
    EXPECT_EQ(failure(0), name + u"」は空のファイルです (0 バイト)。"_s);
    EXPECT_EQ(failure(300), name + u"」は途中で切れています。"_s);
    EXPECT_EQ(failure(6000), name + u"」は壊れているか、途中で切れています。"_s);
    EXPECT_EQ(failure(whole.size() - 4096), name + u"」は壊れているか、途中で切れています。"_s);
    WriteBytes(File(), whole);
    EXPECT_TRUE(OpenReportDatabase());
}

TEST_F(ReportDatabase, ClosingIgnoresWhatIsNotOpen) {
    CloseReportDatabase();
    ASSERT_TRUE(OpenReportDatabase());
    CloseReportDatabase();
    CloseReportDatabase();
    EXPECT_FALSE(Globals().ReportDatabase.IsOpen());
}

TEST_F(ReportDatabase, AnEmptyTableGivesFalseAndIsOpenAllTheSame) {
    ASSERT_TRUE(OpenReportDatabase());
    EXPECT_FALSE(OpenReportForUpdate(Records(), kAll));
    EXPECT_TRUE(Records().IsOpen());
    EXPECT_FALSE(OpenReportReadOnly(Records(), kAll));
    EXPECT_TRUE(Records().IsOpen());
    EXPECT_TRUE(ErrorRows().isEmpty());
}

TEST_F(ReportDatabase, ATableWithRowsGivesTrueBothWays) {
    ASSERT_TRUE(OpenReportDatabase());
    ExecuteReportSql(u"INSERT INTO 要員名簿照会 (コード) VALUES ('00007')"_s);
    EXPECT_TRUE(OpenReportForUpdate(Records(), kAll));
    EXPECT_TRUE(OpenReportReadOnly(Records(), kAll));
    EXPECT_EQ(FailureOf([&] { Records().AddNew(); }).number, database::kNotUpdatable);
}

TEST_F(ReportDatabase, ErrorRowsHaveTheStatementBeforeTheDescription) {
    ASSERT_TRUE(OpenReportDatabase());
    const QString sql = u"SELECT * FROM 無い表 WHERE a = 'b'"_s;
    const QString row = u"エラー SELECT * FROM 無い表 WHERE a = ''b''no such table: 無い表"_s;
    EXPECT_FALSE(ExecuteReportSql(sql));
    EXPECT_FALSE(OpenReportForUpdate(Records(), sql));
    EXPECT_FALSE(Records().IsOpen());
    EXPECT_FALSE(OpenReportReadOnly(Records(), sql));
    EXPECT_FALSE(Records().IsOpen());
    EXPECT_EQ(ErrorRows(), QStringList({row, row, row}));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(ReportDatabase, StatementsOnAClosedConnectionFailLikeOthers) {
    EXPECT_FALSE(ExecuteReportSql(u"DELETE FROM 要員名簿照会"_s));
    EXPECT_FALSE(OpenReportForUpdate(Records(), kAll));
    EXPECT_EQ(ErrorRows().size(), 2);
    EXPECT_TRUE(ErrorRows().first().startsWith(u"エラー DELETE FROM 要員名簿照会"_s));
}

TEST_F(ReportDatabase, AnInstallationComesWithAllFourWorkTables) {
    for (const bool mdb : {false, true}) {
        const SampleInstallation made({.staff = 1, .mdb = mdb});
        for (const QString& word : {u""_s, u"封筒"_s, u"はがき"_s, u"宛名ラベル"_s})
            EXPECT_EQ(made.Report().Value(u"SELECT COUNT(*) FROM "_s + kTable + word), u"0"_s);
    }
}
