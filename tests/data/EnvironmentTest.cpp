#include "data/Environment.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include "data/DataFixture.h"

using namespace Qt::StringLiterals;

namespace {

class Environment : public InInstallation {
  protected:
    const EnvironmentDefinition& Loaded() const { return Globals().Environment; }
    void Set(const QString& assignments) {
        installation.Configuration().Execute(u"UPDATE 動作環境定義 SET "_s + assignments);
    }
    void SetGeneral(const QString& assignments) {
        installation.Configuration().Execute(u"UPDATE データベース定義 SET "_s + assignments);
    }

    QString PrivateConfig() const { return installation.Root() + u"/users/tester/conf/usrcnfg.accdb"_s; }
    /// Sets install kind 1 and makes a private copy of the common file.
    void GivePrivateCopy() {
        Set(u"インストール区分 = '1'"_s);
        QDir().mkpath(installation.Root() + u"/users/tester/conf"_s);
        QFile::copy(installation.Configuration().Path(), PrivateConfig());
    }
    /// Text of the message for the error that opening the common file causes.
    QString OpenErrorText() {
        const Failure failure = FailureOf([this] {
            database::Connection connection;
            connection.Open(ConfigConnectionString(FileKind::Accdb, installation.Configuration().Path()));
        });
        return u"SYB_OPEN ERROR"_s + QString::number(failure.number) + u" "_s + failure.description +
               u"\rsysopen error"_s;
    }
    void ExpectRefusedWithMessage(const QString& text) {
        EXPECT_FALSE(LoadEnvironment());
        EXPECT_FALSE(Globals().ConfigConnectionOpen);
        ASSERT_EQ(services.dialogs.shown.size(), 1);
        EXPECT_EQ(services.dialogs.shown.first().text, text);
        EXPECT_EQ(services.dialogs.shown.first().title, QString());
        EXPECT_FALSE(services.dialogs.shown.first().question);
    }
};

}  // namespace

TEST_F(Environment, DefinitionRowIsReadTrimmedButForTheDialect) {
    SetGeneral(
        u"db = 'A ', dbmw = ' w ', ドライバ名 = ' d ', データベース名 = ' n ', サーバー名 = ' s ', 接続文字列 = ' c ',"
        u" ユーザーID = ' u ', パスワード = ' p ', プロバイダ名 = '  v', データソース名 = '　f　 '"_s);
    ASSERT_TRUE(LoadEnvironment());
    const GeneralDatabaseDefinition& definition = Globals().GeneralDatabase;
    EXPECT_EQ(definition.db, u"A "_s);
    EXPECT_EQ(definition.dbmw, u" w "_s);
    EXPECT_EQ(definition.ドライバ名, u"d"_s);
    EXPECT_EQ(definition.データベース名, u"n"_s);
    EXPECT_EQ(definition.サーバー名, u"s"_s);
    EXPECT_EQ(definition.接続文字列, u"c"_s);
    EXPECT_EQ(definition.ユーザーID, u"u"_s);
    EXPECT_EQ(definition.パスワード, u"p"_s);
    EXPECT_EQ(definition.プロバイダ名, u"v"_s);
    EXPECT_EQ(definition.データソース名, u"　f　"_s);
}

TEST_F(Environment, NullsOfTheDefinitionRowStayEmpty) {
    SetGeneral(u"ユーザーID = NULL, パスワード = NULL, プロバイダ名 = NULL"_s);
    ASSERT_TRUE(LoadEnvironment());
    EXPECT_EQ(Globals().GeneralDatabase.ユーザーID, QString());
    EXPECT_EQ(Globals().GeneralDatabase.パスワード, QString());
    EXPECT_EQ(Globals().GeneralDatabase.プロバイダ名, QString());
}

TEST_F(Environment, ANullDialectIsAnError) {
    SetGeneral(u"db = NULL"_s);
    EXPECT_EQ(FailureOf(LoadEnvironment).number, platform::kInvalidUseOfNull);
    SetGeneral(u"db = 'A', dbmw = NULL"_s);
    EXPECT_EQ(FailureOf(LoadEnvironment).number, platform::kInvalidUseOfNull);
}

TEST_F(Environment, AMissingDefinitionRowLeavesItsFieldsEmpty) {
    installation.Configuration().Execute(u"DELETE FROM データベース定義; DELETE FROM 動作環境定義"_s);
    ASSERT_TRUE(LoadEnvironment());
    EXPECT_EQ(Globals().GeneralDatabase.db, QString());
    EXPECT_EQ(Loaded().OperatingOfficeCode, QString());
    EXPECT_EQ(Loaded().InstallKind, 0);
    EXPECT_EQ(Globals().ScopeOfficeCode, QString());
    EXPECT_EQ(Globals().Layout.UserConfFolder, installation.Root() + u"/conf"_s);
}

TEST_F(Environment, NullsOfTheEnvironmentRowHaveTheirDefaults) {
    Set(u"運用事業所コード = NULL, インストール区分 = NULL, CL更新実行区分 = NULL"_s);
    ASSERT_TRUE(LoadEnvironment());
    EXPECT_EQ(Loaded().OperatingOfficeCode, u"000"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"000"_s);
    EXPECT_EQ(Loaded().InstallKind, 0);
    EXPECT_EQ(Loaded().ClientUpdateKind, 0);
    EXPECT_EQ(Loaded().BackupDate, QString());
    EXPECT_EQ(Loaded().ConditionSwitchDate, QString());
    EXPECT_EQ(Loaded().BackupMethod, 0);
    EXPECT_EQ(Loaded().BackupDay, 0);
    EXPECT_EQ(Loaded().WeekdayBackups, (std::array<int, 7>{}));
    EXPECT_EQ(Loaded().BackupStartTime, QString());
    EXPECT_EQ(Loaded().BackupFolder, QString());
}

TEST_F(Environment, EveryColumnOfTheEnvironmentRowIsRead) {
    Set(u"運用事業所コード = '012', CL更新実行区分 = '3', バックアップ日付 = '20260401 101112', 運用条件切替日付 = "
        u"'202605019',"
        u" バックアップ方法 = '1', バックアップ日指定 = '31', 月曜バックアップ = '1', 火曜バックアップ = '2', "
        u"水曜バックアップ = '3',"
        u" 木曜バックアップ = '4', 金曜バックアップ = '5', 土曜バックアップ = '6', 日曜バックアップ = '7',"
        u" バックアップ開始時刻 = ' 23:00 ', バックアップフォルダ = ' x '"_s);
    ASSERT_TRUE(LoadEnvironment());
    EXPECT_EQ(Loaded().OperatingOfficeCode, u"012"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"012"_s);
    EXPECT_EQ(Loaded().ClientUpdateKind, 3);
    EXPECT_EQ(Loaded().BackupDate, u"20260401"_s);
    EXPECT_EQ(Loaded().ConditionSwitchDate, u"20260501"_s);
    EXPECT_EQ(Loaded().BackupMethod, 1);
    EXPECT_EQ(Loaded().BackupDay, 31);
    EXPECT_EQ(Loaded().WeekdayBackups, (std::array<int, 7>{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Loaded().BackupStartTime, u" 23:00 "_s);
    EXPECT_EQ(Loaded().BackupFolder, u" x "_s);
}

TEST_F(Environment, ThePrivateFileDecidesTheFieldsAndTheCommonOneTheDatabase) {
    GivePrivateCopy();
    SetGeneral(u"データソース名 = 'common'"_s);
    Set(u"運用事業所コード = '001'"_s);
    SampleFile(PrivateConfig())
        .Execute(
            u"UPDATE データベース定義 SET データソース名 = 'private'; UPDATE 動作環境定義 SET 運用事業所コード = '002'"_s);
    ASSERT_TRUE(LoadEnvironment());
    EXPECT_EQ(Globals().GeneralDatabase.データソース名, u"common"_s);
    EXPECT_EQ(Loaded().OperatingOfficeCode, u"002"_s);
    EXPECT_EQ(Globals().Layout.UserConfFolder, installation.Root() + u"/users/tester/conf"_s);
    EXPECT_EQ(Globals().Layout.UserReportFolder, installation.Root() + u"/users/tester/report"_s);
}

TEST_F(Environment, ASecondReadWithoutARowKeepsTheValuesOfTheFirst) {
    Set(u"運用事業所コード = '005', CL更新実行区分 = '2', バックアップ日付 = '20260401'"_s);
    GivePrivateCopy();
    SampleFile(PrivateConfig()).Execute(u"DELETE FROM 動作環境定義"_s);
    ASSERT_TRUE(LoadEnvironment());
    EXPECT_EQ(Loaded().OperatingOfficeCode, u"005"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"005"_s);
    EXPECT_EQ(Loaded().ClientUpdateKind, 2);
    EXPECT_EQ(Loaded().InstallKind, 1);
    EXPECT_EQ(Loaded().BackupDate, QString());
}

TEST_F(Environment, TheConnectionThatStaysIsOnTheFileInUse) {
    GivePrivateCopy();
    ASSERT_TRUE(LoadEnvironment());
    Globals().ConfigConnection.Execute(u"UPDATE 動作環境定義 SET 運用事業所コード = '077'"_s);
    EXPECT_EQ(SampleFile(PrivateConfig()).Rows(u"SELECT 運用事業所コード FROM 動作環境定義"_s),
              QList<QStringList>{{u"077"_s}});
    EXPECT_EQ(installation.Configuration().Rows(u"SELECT 運用事業所コード FROM 動作環境定義"_s),
              QList<QStringList>{{u"000"_s}});
}

TEST_F(Environment, APrivateFileThatCannotBeMadeFailsTheSecondOpening) {
    Set(u"インストール区分 = '1'"_s);
    const QString folder = QFileInfo(PrivateConfig()).path();
    ASSERT_TRUE(QDir().mkpath(QFileInfo(folder).path()));
    QFile inTheWay(folder);
    ASSERT_TRUE(inTheWay.open(QFile::WriteOnly));
    EXPECT_THROW(LoadEnvironment(), database::DatabaseError);
    EXPECT_TRUE(Globals().ConfigConnectionOpen);
    EXPECT_FALSE(QFile::exists(PrivateConfig()));
}

TEST_F(Environment, AnyOtherInstallKindSetsNoFolderAndFailsTheSecondOpening) {
    for (const QString& kind : {u"2"_s, u"3"_s, u"99999999999"_s}) {
        Set(u"インストール区分 = '"_s + kind + u"'"_s);
        EXPECT_THROW(LoadEnvironment(), database::DatabaseError) << kind.toStdString();
        EXPECT_EQ(Globals().Layout.UserConfFolder, QString());
        EXPECT_EQ(Globals().Layout.UserReportFolder, QString());
    }
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(Environment, AnInstallKindOfWordsCountsAsZero) {
    Set(u"インストール区分 = 'x1'"_s);
    EXPECT_TRUE(LoadEnvironment());
    EXPECT_EQ(Globals().Layout.UserConfFolder, installation.Root() + u"/conf"_s);
}

TEST_F(Environment, AGarbageConfigurationFileIsReportedWithItsWordsAndNoTitle) {
    WriteBytes(installation.Configuration().Path(), QByteArray(8192, 'x'));
    ExpectRefusedWithMessage(OpenErrorText());
}

TEST_F(Environment, AConfigurationFileOfNoBytesIsReportedAndStaysAsItIs) {
    WriteBytes(installation.Configuration().Path(), QByteArray());
    ExpectRefusedWithMessage(OpenErrorText());
    EXPECT_EQ(QFileInfo(installation.Configuration().Path()).size(), 0);
}

TEST_F(Environment, ATruncatedConfigurationFileIsReported) {
    WriteBytes(installation.Configuration().Path(), ReadBytes(installation.Configuration().Path()).first(100));
    ExpectRefusedWithMessage(OpenErrorText());
}

TEST_F(Environment, AnExclusivelyLockedConfigurationFileIsReported) {
    OtherProgram other(installation.Configuration().Path());
    other.Run(u"BEGIN EXCLUSIVE"_s);
    EXPECT_FALSE(LoadEnvironment());
    ASSERT_EQ(services.dialogs.shown.size(), 1);
    const QRegularExpression words(u"^SYB_OPEN ERROR-?[0-9]+ [^\\r]+\rsysopen error$"_s);
    EXPECT_TRUE(words.match(services.dialogs.shown.first().text).hasMatch());
    EXPECT_EQ(services.dialogs.shown.first().title, QString());
    other.Run(u"ROLLBACK"_s);
    EXPECT_TRUE(LoadEnvironment());
}

TEST_F(Environment, AMissingDefinitionTableEndsTheStartAndLeavesARow) {
    installation.Configuration().Execute(u"DROP TABLE データベース定義"_s);
    EXPECT_EQ(FailureOf(LoadEnvironment).number, database::kObjectClosed);
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().startsWith(u"エラー "_s));
    EXPECT_TRUE(History().first().endsWith(u"SELECT * FROM データベース定義 WHERE 情報種類 = ''GNR''"_s));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(Environment, AMissingEnvironmentTableEndsTheStartAndLeavesARow) {
    installation.Configuration().Execute(u"DROP TABLE 動作環境定義"_s);
    EXPECT_EQ(FailureOf(LoadEnvironment).number, database::kObjectClosed);
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().endsWith(u"SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = ''001''"_s));
}

TEST_F(Environment, AMissingColumnEndsTheStart) {
    installation.Configuration().Execute(u"ALTER TABLE 動作環境定義 DROP COLUMN バックアップフォルダ"_s);
    EXPECT_EQ(FailureOf(LoadEnvironment).number, platform::kItemNotFound);
}
