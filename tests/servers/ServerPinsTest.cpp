// seal-pins, check and use-server with PINs on a server.

#include <QFile>

#include "servers/ServerFixture.h"
#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/SamplePins.h"

using namespace Qt::StringLiterals;

namespace {

/// Four PINs in plain text, one in each column, and no key file.
class ServerPins : public OnServer {
  protected:
    ServerPins() : OnServer(3) {
        QFile::remove(KeyFile());
        server.Run(
            u"UPDATE M担当者 SET 暗証番号 = NULL; UPDATE M担当者 SET 暗証番号 = 'it''s\\1' WHERE コード = '00001';"
            u"UPDATE M担当者 SET 暗証番号 = '' WHERE コード = '00002';"
            u"UPDATE Mユーザ SET 特権暗証番号 = 'COMPANY1', システム特権暗証番号 = 'SYSTEM99';"
            u"UPDATE M事業所 SET 特権暗証番号 = NULL; UPDATE M事業所 SET 特権暗証番号 = 'OFFICE01' WHERE コード = '001'"_s);
    }
    QString KeyFile() const { return installation.ConfFolder() + u"/pin.key"_s; }
    ToolOutput Seal(const QStringList& more = {}) const {
        return RunServerTool(QStringList{u"seal-pins"_s, installation.Root()} + more);
    }
    ToolOutput Check() const { return RunServerTool({u"check"_s, installation.Root()}); }
    QStringList Stored() const {
        QStringList texts;
        for (const QString& sql : {u"SELECT 暗証番号 FROM M担当者 ORDER BY コード"_s,
                                   u"SELECT 特権暗証番号 FROM Mユーザ"_s, u"SELECT システム特権暗証番号 FROM Mユーザ"_s,
                                   u"SELECT 特権暗証番号 FROM M事業所 WHERE コード = '001'"_s})
            for (const QStringList& row : server.Rows(sql)) texts << row.first();
        return texts;
    }
    /// What use-server says of PINs in clear text.
    QString Fault(int count) const {
        return u"鍵ファイルがあるのに、封じられていない暗証番号が %1 "
               u"件あり、入力しても一致しません。次を実行してください。\n"
               u"    suite-setup seal-pins '%2' --odbc 所有者の接続文字列\n"_s.arg(count)
                   .arg(installation.Root());
    }
    /// What check says of them.
    QString Finding(int count) const {
        return u"・鍵ファイルがあるのに、封じられていない暗証番号が %1 件あります。\n"
               u"  影響: 暗証番号を入力しても「暗証番号が違います。」と出ます。\n"
               u"  対処: 次を実行してください。\n"
               u"    suite-setup seal-pins '%2' --odbc '所有者の接続文字列'\n"_s.arg(count)
                   .arg(installation.Root());
    }
    void DefineReader(const ReadingUser& user) const {
        Define(u"ユーザーID"_s, user.Name());
        Define(u"パスワード"_s, ReadingUser::Password());
    }
};

}  // namespace

TEST_F(ServerPins, AreSealedThroughTheDefinitionRow) {
    const ToolOutput output = Seal();
    EXPECT_EQ(output.status, 0) << output.err.toStdString();
    EXPECT_EQ(output.out, u"暗証番号 4 件を封じました。既に封じてあったもの 0 件。\n"_s);
    const SamplePins pins(installation.Root());
    QStringList opened;
    for (const QString& stored : Stored()) opened << (stored.isEmpty() ? stored : pins.Opened(stored));
    EXPECT_EQ(opened, (QStringList{u"it's\\1"_s, u""_s, QString(), u"COMPANY1"_s, u"SYSTEM99"_s, u"OFFICE01"_s}));
    EXPECT_FALSE(Stored()[1].isNull()) << "empty stays empty";
    EXPECT_TRUE(Stored()[2].isNull()) << "Null stays Null";
    const QStringList sealed = Stored();
    EXPECT_EQ(Seal().out, u"暗証番号 0 件を封じました。既に封じてあったもの 4 件。\n"_s);
    EXPECT_EQ(Stored(), sealed);
}

TEST_F(ServerPins, AreSealedByTheAccountOfTheOptionWhereThatOfTheProgramsMayOnlyRead) {
    const ReadingUser user(server);
    DefineReader(user);
    const QStringList clear = Stored();
    EXPECT_EQ(Seal().status, 1);
    EXPECT_EQ(Stored(), clear);
    EXPECT_FALSE(QFile::exists(KeyFile()));
    const ToolOutput output = Seal({u"--odbc"_s, server.OdbcString()});
    EXPECT_EQ(output.out, u"暗証番号 4 件を封じました。既に封じてあったもの 0 件。\n"_s) << output.err.toStdString();
}

TEST_F(ServerPins, OfAnotherDatabaseThanTheDefinitionsStayAsTheyAre) {
    const ServerDatabase other;
    ASSERT_EQ(RunServerTool({u"server-init"_s, u"--odbc"_s, other.OdbcString()}).status, 0);
    other.Run(u"INSERT INTO Mユーザ (ID, 特権暗証番号) VALUES ('0001', 'OTHER1')"_s);
    const QStringList clear = Stored();
    const ToolOutput output = Seal({u"--odbc"_s, other.OdbcString()});
    EXPECT_EQ(output.status, 2);
    EXPECT_TRUE(
        output.err.startsWith(u"suite-setup: --odbc のデータベースは、定義のものと暗証番号が異なります。"
                              u"同じデータベースを指定してください。\n"_s))
        << output.err.toStdString();
    EXPECT_EQ(Stored(), clear);
    EXPECT_EQ(other.Rows(u"SELECT 特権暗証番号 FROM Mユーザ"_s)[0][0], u"OTHER1"_s);
    EXPECT_FALSE(QFile::exists(KeyFile()));
}

TEST_F(ServerPins, AFailureOnTheWayChangesNothingAndLeavesNoKey) {
    const QStringList clear = Stored();
    server.Run(IsPostgres() ? u"ALTER TABLE M事業所 ADD CONSTRAINT 短い CHECK (length(特権暗証番号) < 20)"_s
                            : u"ALTER TABLE M事業所 MODIFY 特権暗証番号 VARCHAR(20)"_s);
    const ToolOutput output = Seal();
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(Stored(), clear);
    EXPECT_FALSE(QFile::exists(KeyFile()));
}

TEST_F(ServerPins, InTheClearBesideAKeyFileAreNamedByCheckAndUseServer) {
    EXPECT_FALSE(Check().out.contains(u"暗証番号が"_s)) << "a site that was never sealed";
    const QStringList use = {u"use-server"_s, installation.Root(), u"--odbc"_s, server.OdbcString()};
    EXPECT_FALSE(RunServerTool(use).out.contains(u"暗証番号が"_s));
    Seal();
    server.Run(u"UPDATE M担当者 SET 暗証番号 = 'NEW1' WHERE コード = '00003'"_s);
    EXPECT_TRUE(Check().out.contains(Finding(1))) << Check().out.toStdString();
    const ToolOutput used = RunServerTool(use);
    EXPECT_EQ(used.status, 0);
    EXPECT_TRUE(used.out.endsWith(u"\n"_s + Fault(1))) << used.out.toStdString();
    EXPECT_EQ(Seal().out, u"暗証番号 1 件を封じました。既に封じてあったもの 4 件。\n"_s);
    EXPECT_FALSE(Check().out.contains(u"暗証番号が"_s));
}
