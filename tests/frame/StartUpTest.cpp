#include "access/StartUp.h"

#include <QDir>
#include <QFile>

#include "access/CompanyInformation.h"
#include "data/DataFixture.h"
#include "data/RunHistory.h"

using namespace Qt::StringLiterals;

namespace {

class StartUp : public InInstallation {
  protected:
    ~StartUp() override { EXPECT_TRUE(services.dialogs.shown.isEmpty()) << "a start shows nothing by itself"; }

    void SetGeneral(const QString& assignments) {
        installation.Configuration().Execute(u"UPDATE データベース定義 SET "_s + assignments);
    }
    QList<QStringList> Rows() {
        return installation.Configuration().Rows(
            u"SELECT proccounter, 摘要, 運用事業所コード, 起動担当者コード, ユーザID FROM プログラム稼動履歴"
            u" ORDER BY rowid"_s);
    }
    /// History row of a refused general database; the text is that of opening the same connection string.
    QString OpenErrorRow() {
        const Failure failure = FailureOf([] {
            database::Connection connection;
            connection.Mode = database::ConnectMode::Read;
            connection.Open(*GeneralConnectionString(Globals().GeneralDatabase));
        });
        const QString text = u"DB_OPEN ERROR"_s + QString::number(failure.number) + u" "_s + failure.description;
        return u"エラー "_s + QString(text).replace(u"'"_s, u"''"_s);
    }
    void ExpectGeneralRefused() {
        EXPECT_FALSE(InitializeData());
        EXPECT_FALSE(Globals().MainConnectionOpen);
        const QString row = OpenErrorRow();
        TerminateData();
        EXPECT_EQ(History(), (QStringList{u"開始 "_s, row, u"終了"_s}));
    }
};

}  // namespace

TEST_F(StartUp, ARunIsNumberedFromOneWithoutAGap) {
    services.system.commandLine = u"  001 abc  "_s;
    ASSERT_TRUE(InitializeData());
    RecordOutputStart(u"印刷"_s);
    TerminateData();
    EXPECT_EQ(Rows(), (QList<QStringList>{{u"000000000001"_s, u"開始 001 abc"_s, u"000"_s, u"00001"_s, u"tester"_s},
                                          {u"000000000002"_s, u"出力開始 印刷"_s, u"000"_s, u"00001"_s, u"tester"_s},
                                          {u"000000000003"_s, u"終了"_s, u"000"_s, u"00001"_s, u"tester"_s}}));
}

TEST_F(StartUp, ASecondRunIsNumberedFromOneAgain) {
    ASSERT_TRUE(InitializeData());
    TerminateData();
    ASSERT_TRUE(InitializeData());
    EXPECT_EQ(Rows().last().first(), u"000000000001"_s);
}

TEST_F(StartUp, QuotesOfTheCommandLineAreDoubledOnceSoThatItIsStoredAsItIs) {
    services.system.commandLine = u"001'O''Neil\" x"_s;
    ASSERT_TRUE(InitializeData());
    EXPECT_EQ(History(), QStringList{u"開始 001'O''Neil\" x"_s});
}

TEST_F(StartUp, ScreenAndStaffAreLoaded) {
    ASSERT_TRUE(InitializeData());
    EXPECT_EQ(Globals().ScreenSize, QSize(1280, 1024));
    EXPECT_TRUE(Globals().MainConnectionOpen);
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, u"00001"_s);
    EXPECT_EQ(Globals().Staff.StaffName, u"山田　太郎"_s);
    EXPECT_EQ(Globals().GeneralFilePath, installation.General().Path());
}

TEST_F(StartUp, WithoutAStoredStaffCodeTheStartGoesOn) {
    installation.Configuration().Execute(u"UPDATE 動作環境定義 SET 起動担当者コード = NULL"_s);
    EXPECT_TRUE(InitializeData());
    EXPECT_EQ(Rows().first(), (QStringList{u"000000000001"_s, u"開始 "_s, u"000"_s, u""_s, u"tester"_s}));
}

TEST_F(StartUp, WithACodeThatHasNoRowTheStartGoesOn) {
    installation.Configuration().Execute(u"UPDATE 動作環境定義 SET 起動担当者コード = '99999'"_s);
    EXPECT_TRUE(InitializeData());
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, u"99999"_s);
    EXPECT_EQ(Globals().Staff.StaffName, QString());
}

TEST_F(StartUp, AMissingStaffMasterEndsTheStart) {
    installation.General().Execute(u"DROP TABLE M担当者"_s);
    EXPECT_FALSE(InitializeData());
    EXPECT_TRUE(Globals().MainConnectionOpen);
    TerminateData();
    EXPECT_EQ(History().size(), 3);
    EXPECT_EQ(History().last(), u"終了"_s);
}

TEST_F(StartUp, AnUnknownDialectCountsAsOpen) {
    installation.Configuration().Execute(u"UPDATE 動作環境定義 SET 起動担当者コード = NULL"_s);
    for (const QString& db : {u"A "_s, u""_s, u"X"_s}) {
        SetGeneral(u"db = '"_s + db + u"'"_s);
        EXPECT_TRUE(InitializeData()) << db.toStdString();
        EXPECT_TRUE(Globals().MainConnectionOpen);
        EXPECT_FALSE(Globals().MainConnection.IsOpen());
        TerminateData();
    }
    EXPECT_EQ(History().count(u"終了"_s), 3);
    EXPECT_EQ(History().size(), 6);
}

TEST_F(StartUp, UnderAnUnknownDialectTheFirstQueryFailsAndLeavesARow) {
    SetGeneral(u"db = 'A '"_s);
    EXPECT_FALSE(InitializeData()) << "the staff step is the first query here";
    EXPECT_TRUE(Globals().MainConnectionOpen);
    const QString statement = u"SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00001'"_s;
    const QString words =
        FailureOf([&] { database::Recordset().Open(statement, Globals().MainConnection); }).description;
    EXPECT_FALSE(words.isEmpty());
    EXPECT_EQ(History(), QStringList({u"開始 "_s, u"エラー "_s + QString(words + statement).replace(u"'"_s, u"''"_s)}));
}

TEST_F(StartUp, WithoutADefinitionRowNothingIsOpened) {
    installation.Configuration().Execute(
        u"DELETE FROM データベース定義; UPDATE 動作環境定義 SET 起動担当者コード = NULL"_s);
    EXPECT_TRUE(InitializeData());
    EXPECT_FALSE(Globals().MainConnection.IsOpen());
}

TEST_F(StartUp, AMissingGeneralFileIsRefusedAndNotMade) {
    ASSERT_TRUE(QFile::remove(installation.General().Path()));
    ExpectGeneralRefused();
    EXPECT_FALSE(QFile::exists(installation.General().Path()));
}

TEST_F(StartUp, AGeneralFileOfNoBytesIsRefused) {
    WriteBytes(installation.General().Path(), QByteArray());
    ExpectGeneralRefused();
}

TEST_F(StartUp, AGarbageGeneralFileIsRefused) {
    WriteBytes(installation.General().Path(), QByteArray(8192, 'x'));
    ExpectGeneralRefused();
}

TEST_F(StartUp, ATruncatedGeneralFileIsRefused) {
    WriteBytes(installation.General().Path(), ReadBytes(installation.General().Path()).first(2000));
    ExpectGeneralRefused();
}

TEST_F(StartUp, AFolderInPlaceOfTheGeneralFileIsRefused) {
    ASSERT_TRUE(QFile::remove(installation.General().Path()));
    ASSERT_TRUE(QDir().mkpath(installation.General().Path()));
    ExpectGeneralRefused();
}

TEST_F(StartUp, AnExclusivelyLockedGeneralFileIsRefused) {
    OtherProgram other(installation.General().Path());
    other.Run(u"BEGIN EXCLUSIVE"_s);
    EXPECT_FALSE(InitializeData());
    TerminateData();
    ASSERT_EQ(History().size(), 3);
    EXPECT_TRUE(History()[1].startsWith(u"エラー DB_OPEN ERROR"_s));
    other.Run(u"ROLLBACK"_s);
}

TEST_F(StartUp, AnUnknownProviderIsRefused) {
    SetGeneral(u"プロバイダ名 = 'NoSuch.Provider'"_s);
    ExpectGeneralRefused();
}

TEST_F(StartUp, ADriverThatIsNotInstalledIsNamedInTheHistory) {
    SetGeneral(u"db = 'S', プロバイダ名 = 'NoSuch ODBC Driver', サーバー名 = 'localhost', データベース名 = 'suite'"_s);
    EXPECT_FALSE(InitializeData());
    TerminateData();
    ASSERT_EQ(History().size(), 3);
    EXPECT_EQ(History()[1],
              u"エラー DB_OPEN ERROR3706 プロバイダー「NoSuch ODBC Driver」の ODBC ドライバー「NoSuch ODBC Driver」が"
              u"インストールされていません。"_s);
}

TEST_F(StartUp, NothingIsWrittenToTheGeneralDatabase) {
    const QByteArray before = ReadBytes(installation.General().Path());
    const QStringList filesBefore = QDir(installation.Root() + u"/data"_s).entryList(QDir::Files);
    ASSERT_TRUE(InitializeData());
    TerminateData();
    EXPECT_EQ(ReadBytes(installation.General().Path()), before);
    EXPECT_EQ(QDir(installation.Root() + u"/data"_s).entryList(QDir::Files), filesBefore);
}

TEST_F(StartUp, AnyErrorBehindTheFirstOpeningGivesFalseWithoutAMessage) {
    for (const QString& damage :
         {u"UPDATE 動作環境定義 SET インストール区分 = '2'"_s, u"UPDATE データベース定義 SET db = NULL"_s,
          u"DROP TABLE 動作環境定義"_s, u"DROP TABLE データベース定義"_s}) {
        const QByteArray whole = ReadBytes(installation.Configuration().Path());
        installation.Configuration().Execute(damage);
        EXPECT_FALSE(InitializeData()) << damage.toStdString();
        TerminateData();
        WriteBytes(installation.Configuration().Path(), whole);
        ResetGlobals();
        Globals().ProgramId = Globals().ReportName = u"要員名簿照会"_s;
        Globals().MenuName = u"販路推進データ管理"_s;
        ASSERT_TRUE(InitializeData()) << "without the damage";
        TerminateData();
    }
}

TEST_F(StartUp, AMissingHistoryTableStopsNoStart) {
    installation.Configuration().Execute(u"DROP TABLE プログラム稼動履歴"_s);
    EXPECT_TRUE(InitializeData());
    TerminateData();
    EXPECT_EQ(Globals().ProcCounter, 2);
}

TEST_F(StartUp, ThisProgramPurgesNothingAndTheMenuProgramDoes) {
    installation.Configuration().Execute(
        u"INSERT INTO プログラム稼動履歴 (実行日付, 摘要) VALUES ('20000101 000000', '古い')"_s);
    ASSERT_TRUE(InitializeData());
    TerminateData();
    EXPECT_TRUE(History().contains(u"古い"_s));
    Globals().ProgramId = u"販路推進データ管理"_s;
    ASSERT_TRUE(InitializeData());
    EXPECT_TRUE(History().contains(u"古い"_s)) << "the id is compared exactly";
    Globals().ProgramId = u"販路推進"_s;
    ASSERT_TRUE(InitializeData());
    EXPECT_FALSE(History().contains(u"古い"_s));
}

TEST_F(StartUp, AStartBeforeTheEnvironmentWritesNoRowAndEndsQuietly) {
    services.system.applicationFolder = installation.Root() + u"/bin"_s;
    EXPECT_FALSE(InitializeData());
    TerminateData();
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(StartUp, TheEndClosesBothConnectionsAndLeavesTheFlags) {
    ASSERT_TRUE(InitializeData());
    TerminateData();
    EXPECT_FALSE(Globals().ConfigConnection.IsOpen());
    EXPECT_FALSE(Globals().MainConnection.IsOpen());
    EXPECT_TRUE(Globals().ConfigConnectionOpen);
    EXPECT_TRUE(Globals().MainConnectionOpen);
}

TEST_F(StartUp, TheEndAfterAFailedReconnectionWritesNothingAndEndsNormally) {
    ASSERT_TRUE(InitializeData());
    const QString away = installation.Root() + u"/conf/away"_s;
    ASSERT_TRUE(QFile::rename(installation.Configuration().Path(), away));
    EXPECT_FALSE(ReconnectConfigConnection());
    TerminateData();
    ASSERT_TRUE(QFile::rename(away, installation.Configuration().Path()));
    EXPECT_EQ(History(), QStringList{u"開始 "_s});
}

TEST_F(StartUp, TheEndIsSafeBeforeAnythingWasOpened) {
    TerminateData();
    EXPECT_TRUE(History().isEmpty());
    EXPECT_EQ(Globals().ProcCounter, 1);
}

TEST_F(StartUp, TheFirstRowIsLostQuietlyWhenTheStaffCodeCannotBeRead) {
    ASSERT_TRUE(InitializeData());
    installation.Configuration().Execute(u"DROP TABLE 動作環境定義"_s);
    RecordRunStart();
    EXPECT_EQ(History().size(), 2);
    EXPECT_TRUE(History().last().startsWith(u"エラー "_s)) << "the wrapper's row; no second 開始";
}

TEST_F(StartUp, TheTextOutputNameIsTheReportNameInTheOfficesFolder) {
    installation.General().Execute(u"UPDATE M事業所 SET テキスト出力フォルダ = '/out'"_s);
    ASSERT_TRUE(InitializeData());
    EXPECT_TRUE(LoadUserInformation());
    EXPECT_EQ(Globals().TextOutputFileName, u"/out/要員名簿照会.CSV"_s);
}
