#include "data/Connections.h"

#include <QFile>

#include "data/DataFixture.h"
#include "data/Recordsets.h"

using namespace Qt::StringLiterals;

namespace {
GeneralDatabaseDefinition Definition(const QString& db) {
    GeneralDatabaseDefinition definition;
    definition.db = db;
    definition.データベース名 = u"hanro"_s;
    definition.サーバー名 = u"srv1"_s;
    definition.接続文字列 = u"Provider=never"_s;
    definition.ユーザーID = u"u1"_s;
    definition.パスワード = u"p1"_s;
    definition.プロバイダ名 = u"PRV"_s;
    definition.データソース名 = u"source"_s;
    return definition;
}

using Connections = WithConnections;
}  // namespace

TEST(ConnectionStrings, EachDialectHasItsFieldsInItsOrder) {
    EXPECT_EQ(GeneralConnectionString(Definition(u"A"_s)),
              u"Provider=PRV;User ID=u1;Password=p1;Data Source=source;"_s);
    EXPECT_EQ(GeneralConnectionString(Definition(u"S"_s)),
              u"Provider=PRV;User ID=u1;Password=p1;Data Source=srv1;Initial Catalog=hanro;"_s);
    EXPECT_EQ(GeneralConnectionString(Definition(u"O"_s)),
              u"Provider=PRV;User ID=u1;Password=p1;Data Source=source;"_s);
}

TEST(ConnectionStrings, AnUnknownDialectHasNone) {
    for (const QString& db : {u""_s, u"A "_s, u" A"_s, u"a"_s, u"X"_s, u"Ａ"_s})
        EXPECT_EQ(GeneralConnectionString(Definition(db)), std::nullopt) << db.toStdString();
}

TEST(ConnectionStrings, WithoutAnAccountNothingPrecedesTheSemicolons) {
    GeneralDatabaseDefinition definition = Definition(u"A"_s);
    definition.ユーザーID = definition.パスワード = QString();
    EXPECT_EQ(GeneralConnectionString(definition), u"Provider=PRV;User ID=;Password=;Data Source=source;"_s);
}

TEST(ConnectionStrings, ConfigurationGoesByItsKindAndTakesThePathUnchanged) {
    EXPECT_EQ(ConfigConnectionString(FileKind::Accdb, u"/a/usrcnfg.accdb"_s),
              u"Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source=/a/usrcnfg.accdb"_s);
    EXPECT_EQ(ConfigConnectionString(FileKind::Mdb, u"/a/usrcnfg.mdb;"_s),
              u"Provider=Microsoft.Jet.OLEDB.4.0;User ID=;Password=;Data Source=/a/usrcnfg.mdb;"_s);
}

TEST_F(Connections, OnlyTheFileInUseIsClosedByASemicolon) {
    Globals().Layout.UserConfFolder = u"/root/conf"_s;
    EXPECT_EQ(UserConfigDataSource(), u"/root/conf/usrcnfg.accdb;"_s);
    Globals().Layout.ConfigDbKind = FileKind::Mdb;
    EXPECT_EQ(UserConfigDataSource(), u"/root/conf/usrcnfg.mdb;"_s);
}

TEST_F(Connections, EveryConnectionHasTheThreeSettings) {
    for (const database::Connection* connection : {&Globals().ConfigConnection, &Globals().MainConnection}) {
        EXPECT_EQ(connection->ConnectionTimeout, 60);
        EXPECT_EQ(connection->CommandTimeout, 30000);
        EXPECT_EQ(connection->CursorLocation, database::CursorLocation::Client);
    }
}

TEST_F(Connections, NothingCanBeWrittenToTheGeneralDatabase) {
    const QByteArray before = ReadBytes(installation.General().Path());
    EXPECT_THROW(Globals().MainConnection.Execute(u"UPDATE M担当者 SET 氏名 = 'x'"_s), database::DatabaseError);
    EXPECT_THROW(Globals().MainConnection.Execute(u"CREATE TABLE x (a TEXT)"_s), database::DatabaseError);
    database::Recordset record;
    EXPECT_TRUE(OpenRecordset(record, u"SELECT * FROM M担当者"_s, LogStatement::Yes));
    EXPECT_EQ(ReadBytes(installation.General().Path()), before);
}

TEST_F(Connections, TheFilePathOfADesktopDatabaseIsKeptTrimmed) {
    Globals().GeneralDatabase.データソース名 = u"  "_s + installation.General().Path() + u" "_s;
    OpenGeneralConnection();
    EXPECT_EQ(Globals().GeneralFilePath, installation.General().Path());
}

TEST_F(Connections, AMissingGeneralFileIsNotMade) {
    Globals().GeneralDatabase.データソース名 = installation.Root() + u"/data/none.accdb"_s;
    EXPECT_THROW(OpenGeneralConnection(), database::DatabaseError);
    EXPECT_FALSE(QFile::exists(installation.Root() + u"/data/none.accdb"_s));
}

TEST_F(Connections, AnUnknownDialectOpensNothingAndSaysNothing) {
    Globals().MainConnection.Close();
    Globals().GeneralDatabase.db = u"A "_s;
    OpenGeneralConnection();
    EXPECT_FALSE(Globals().MainConnection.IsOpen());
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(Connections, AReconnectionSeesTheFileAgain) {
    EXPECT_TRUE(ReconnectConfigConnection());
    EXPECT_TRUE(Globals().ConfigConnectionOpen);
    EXPECT_TRUE(ExecuteConfigSql(u"UPDATE 動作環境定義 SET 運用事業所コード = '003'"_s));
}

TEST_F(Connections, AFailedReconnectionIsSilentAndWritesFailQuietlyFromThenOn) {
    const QString away = installation.Root() + u"/conf/away"_s;
    ASSERT_TRUE(QFile::rename(installation.Configuration().Path(), away));
    EXPECT_FALSE(ReconnectConfigConnection());
    EXPECT_FALSE(Globals().ConfigConnectionOpen);
    EXPECT_FALSE(ExecuteConfigSql(u"UPDATE 動作環境定義 SET 運用事業所コード = '003'"_s));
    EXPECT_FALSE(QFile::exists(installation.Configuration().Path()));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    ASSERT_TRUE(QFile::rename(away, installation.Configuration().Path()));
    EXPECT_TRUE(History().isEmpty());
    EXPECT_EQ(Globals().ProcCounter, 1);
    EXPECT_TRUE(ReconnectConfigConnection());
}
