#include "setup/storage/PinSealing.h"

#include <gtest/gtest.h>

#include <QFile>

#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/OtherProgram.h"
#include "support/SampleInstallation.h"
#include "support/SamplePins.h"

using namespace Qt::StringLiterals;

namespace {

/// A site with four PINs in clear text, one in each column.
class PinSealing : public testing::Test {
  protected:
    PinSealing() : installation({.staff = 3}) {
        QFile::remove(KeyFile());
        installation.General().Execute(
            u"UPDATE M担当者 SET 暗証番号 = NULL; UPDATE M担当者 SET 暗証番号 = 'STAFF1' WHERE コード = '00001';"
            u"UPDATE M担当者 SET 暗証番号 = '' WHERE コード = '00002';"
            u"UPDATE Mユーザ SET 特権暗証番号 = 'COMPANY1', システム特権暗証番号 = 'SYSTEM99';"
            u"UPDATE M事業所 SET 特権暗証番号 = NULL; UPDATE M事業所 SET 特権暗証番号 = 'OFFICE01' WHERE コード = '001'"_s);
    }
    QString KeyFile() const { return installation.ConfFolder() + u"/pin.key"_s; }
    ToolOutput Seal() const { return RunTool({u"seal-pins"_s, installation.Root()}); }
    QStringList Stored() const {
        QStringList texts;
        for (const QStringList& row : installation.General().Rows(
                 u"SELECT 暗証番号 FROM M担当者 UNION ALL SELECT 特権暗証番号 FROM Mユーザ"
                 u" UNION ALL SELECT システム特権暗証番号 FROM Mユーザ"
                 u" UNION ALL SELECT 特権暗証番号 FROM M事業所 WHERE コード IN ('000', '001')"_s))
            texts << row.first();
        return texts;
    }

    SampleInstallation installation;
};

}  // namespace

TEST_F(PinSealing, MovesEveryColumnOverAndSaysHowMany) {
    const ToolOutput output = Seal();
    EXPECT_EQ(output.status, 0) << output.err.toStdString();
    EXPECT_EQ(output.out, u"暗証番号 4 件を封じました。既に封じてあったもの 0 件。\n"_s);
    const SamplePins pins(installation.Root());
    QStringList opened;
    for (const QString& stored : Stored()) opened << (stored.isEmpty() ? stored : pins.Opened(stored));
    EXPECT_EQ(opened,
              (QStringList{u"STAFF1"_s, u""_s, QString(), u"COMPANY1"_s, u"SYSTEM99"_s, QString(), u"OFFICE01"_s}));
    EXPECT_FALSE(Stored()[1].isNull()) << "empty stays empty";
    EXPECT_TRUE(Stored()[2].isNull()) << "Null stays Null";
}

TEST_F(PinSealing, TwiceDoesNoHarm) {
    Seal();
    const QStringList before = Stored();
    const QByteArray key = ReadBytes(KeyFile());
    EXPECT_EQ(Seal().out, u"暗証番号 0 件を封じました。既に封じてあったもの 4 件。\n"_s);
    EXPECT_EQ(Stored(), before);
    EXPECT_EQ(ReadBytes(KeyFile()), key);
}

TEST_F(PinSealing, SealsWhatCameInTheClearLater) {
    Seal();
    installation.General().Execute(u"UPDATE M担当者 SET 暗証番号 = 'S1:NEW' WHERE コード = '00003'"_s);
    EXPECT_EQ(Seal().out, u"暗証番号 1 件を封じました。既に封じてあったもの 4 件。\n"_s);
    EXPECT_EQ(SamplePins(installation.Root()).Opened(Stored()[2]), u"S1:NEW"_s);
}

TEST_F(PinSealing, NoClearPinStaysReadableInTheFile) {
    Seal();
    const QByteArray file = ReadBytes(installation.General().Path());
    for (const char* pin : {"STAFF1", "COMPANY1", "SYSTEM99", "OFFICE01"}) EXPECT_FALSE(file.contains(pin)) << pin;
}

TEST_F(PinSealing, PinsOfAnotherKeyAreCountedAndLeftAlone) {
    const QString foreign = platform::SealPin(u"ELSE01"_s, platform::PinKey());
    installation.General().Execute(u"UPDATE M担当者 SET 暗証番号 = "_s + SqlLiteral(foreign) +
                                   u" WHERE コード = '00003'"_s);
    EXPECT_EQ(Seal().out,
              u"暗証番号 4 件を封じました。既に封じてあったもの 0 件。\n"
              u"別の鍵で封じられていて開けないものが 1 件あり、そのまま残しました。\n"_s);
    EXPECT_EQ(Stored()[2], foreign);
}

TEST_F(PinSealing, AFailureChangesNothingAndLeavesNoKey) {
    const QStringList before = Stored();
    installation.General().Execute(u"ALTER TABLE M事業所 RENAME TO 退避"_s);
    const ToolOutput output = Seal();
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.out, QString());
    EXPECT_FALSE(QFile::exists(KeyFile()));
    installation.General().Execute(u"ALTER TABLE 退避 RENAME TO M事業所"_s);
    EXPECT_EQ(Stored(), before);
}

TEST_F(PinSealing, AnUnusableKeyFileIsNotReplaced) {
    const QStringList before = Stored();
    WriteBytes(KeyFile(), "short");
    const ToolOutput output = Seal();
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.err, u"suite-setup: 鍵ファイル %1 を読めません。\n"_s.arg(KeyFile()));
    EXPECT_EQ(Stored(), before);
    EXPECT_EQ(ReadBytes(KeyFile()), "short");
}

TEST_F(PinSealing, AnotherProgramsLockEndsItWithNothingChanged) {
    const QStringList before = Stored();
    OtherProgram other(installation.General().Path());
    other.Run(u"BEGIN IMMEDIATE"_s);
    EXPECT_EQ(Seal().status, 1);
    other.Run(u"ROLLBACK"_s);
    EXPECT_FALSE(QFile::exists(KeyFile()));
    EXPECT_EQ(Stored(), before);
}

TEST_F(PinSealing, AMissingGeneralFileAndAServerThatIsNotThereFailAndLeaveNoKey) {
    installation.SetDefinition(u"データソース名"_s, installation.Root() + u"/data/none.accdb"_s);
    EXPECT_EQ(Seal().status, 1);
    installation.SetDefinition(u"db"_s, u"S"_s);
    installation.SetDefinition(u"プロバイダ名"_s, u"NoSuchDriver"_s);
    EXPECT_EQ(Seal().status, 1);
    EXPECT_FALSE(QFile::exists(KeyFile()));
}

TEST_F(PinSealing, AnAccountIsRefusedForAFile) {
    const ToolOutput output = RunTool({u"seal-pins"_s, installation.Root(), u"--odbc"_s, u"DSN=x"_s});
    EXPECT_EQ(output.status, 2);
    EXPECT_TRUE(output.err.startsWith(u"suite-setup: 一般データベースはファイルです。--odbc は付けられません。\n"_s))
        << output.err.toStdString();
    EXPECT_FALSE(QFile::exists(KeyFile()));
}

TEST_F(PinSealing, CheckNamesPinsInTheClearOnlyBesideAKeyFile) {
    const auto checked = [&] { return RunTool({u"check"_s, installation.Root()}).out; };
    const QString fault =
        u"・鍵ファイルがあるのに、封じられていない暗証番号が 1 件あります。\n"
        u"  影響: 暗証番号を入力しても「暗証番号が違います。」と出ます。\n"
        u"  対処: 次を実行してください。\n"
        u"    suite-setup seal-pins '%1'\n"_s.arg(installation.Root());
    EXPECT_FALSE(checked().contains(u"暗証番号が"_s)) << "a site that was never sealed";
    Seal();
    EXPECT_FALSE(checked().contains(u"暗証番号が"_s));
    installation.General().Execute(u"UPDATE M担当者 SET 暗証番号 = 'NEW1' WHERE コード = '00003'"_s);
    EXPECT_TRUE(checked().contains(fault)) << checked().toStdString();
    Seal();
    EXPECT_FALSE(checked().contains(u"暗証番号が"_s));
}
