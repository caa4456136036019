#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/Services.h"
#include "setup/RunTool.h"
#include "setup/storage/Installer.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

/// Both registries are empty files of the test.
class RegistryCommandTest : public ::testing::Test {
  protected:
    void SetUp() override {
        QFile::remove(platform::MachineRegistryFile());
        QFile::remove(platform::UserRegistryFile());
    }
    static ToolOutput Tool(const QStringList& words) { return RunTool(QStringList{u"registry"_s} + words); }
};

const QString kKey = u"HKCU\\Software\\Suite\\名簿"_s;

}  // namespace

TEST_F(RegistryCommandTest, WhatWasSetIsGot) {
    EXPECT_EQ(Tool({u"set"_s, kKey, u"Path"_s, u"/a b/"_s}).status, 0);
    EXPECT_EQ(Tool({u"set"_s, kKey, u"Level"_s, u"4294967295"_s, u"--number"_s}).status, 0);
    EXPECT_EQ(Tool({u"get"_s, u"hkcu\\SOFTWARE\\suite\\名簿"_s, u"PATH"_s}).out, u"/a b/\n"_s);
    EXPECT_EQ(Tool({u"get"_s, kKey, u"Level"_s}).out, u"4294967295\n"_s);
}

TEST_F(RegistryCommandTest, ValueMayBeEmptyAndBeginWithADashAfterTwoDashes) {
    EXPECT_EQ(Tool({u"set"_s, kKey, u"Path"_s, u""_s}).status, 0);
    EXPECT_EQ(Tool({u"get"_s, kKey, u"Path"_s}).out, u"\n"_s);
    EXPECT_EQ(Tool({u"set"_s, kKey, u"Path"_s, u"-x"_s}).err.section(u'\n', 0, 0),
              u"suite-setup: オプション -x は使えません。"_s);
    EXPECT_EQ(Tool({u"set"_s, u"--"_s, kKey, u"Path"_s, u"-x"_s}).status, 0);
    EXPECT_EQ(Tool({u"get"_s, kKey, u"Path"_s}).out, u"-x\n"_s);
}

TEST_F(RegistryCommandTest, WrongWordsAreNamed) {
    const auto error = [&](const QStringList& words) { return Tool(words).err.section(u'\n', 0, 0); };
    EXPECT_EQ(error({}), u"suite-setup: registry のあとにコマンドの続きを指定してください。"_s);
    EXPECT_EQ(error({u"drop"_s}), u"suite-setup: コマンド registry drop はありません。"_s);
    EXPECT_EQ(error({u"get"_s}), u"suite-setup: キーを指定してください。"_s);
    EXPECT_EQ(error({u"get"_s, kKey}), u"suite-setup: 値の名前を指定してください。"_s);
    EXPECT_EQ(error({u"set"_s, kKey, u"n"_s}), u"suite-setup: 値を指定してください。"_s);
    EXPECT_EQ(error({u"list"_s, kKey, u"n"_s}), u"suite-setup: 引数 n が余分です。"_s);
}

TEST_F(RegistryCommandTest, ListShowsKeysWithValuesBelowAKey) {
    Tool({u"set"_s, kKey, u"Path"_s, u"/a/"_s});
    Tool({u"set"_s, u"HKCU\\Software\\Other"_s, u"n"_s, u"1"_s, u"--number"_s});
    Tool({u"set"_s, u"HKLM\\Soft"_s, u"x"_s, u"y"_s});
    EXPECT_EQ(Tool({u"list"_s, u"HKCU\\software\\suite"_s}).out,
              u"[HKCU\\Software\\Suite\\名簿]\n\"Path\"=\"/a/\"\n"_s);
    EXPECT_EQ(Tool({u"list"_s}).out,
              u"[HKLM\\Soft]\n\"x\"=\"y\"\n[HKCU\\Software\\Other]\n\"n\"=1\n"
              "[HKCU\\Software\\Suite\\名簿]\n\"Path\"=\"/a/\"\n"_s);
}

TEST_F(RegistryCommandTest, MissingValueIsAFailureAndWrongWordsAreUsageErrors) {
    EXPECT_EQ(Tool({u"get"_s, kKey, u"Path"_s}).err, u"suite-setup: キーまたは値がありません。\n"_s);
    EXPECT_EQ(Tool({u"get"_s, kKey, u"Path"_s}).status, 1);
    for (const QStringList& words :
         {QStringList{}, QStringList{u"get"_s, kKey}, QStringList{u"drop"_s}, QStringList{u"set"_s, kKey, u"n"_s},
          QStringList{u"get"_s, u"HKCR\\a"_s, u"n"_s}, QStringList{u"set"_s, kKey, u"n"_s, u"x"_s, u"--number"_s},
          QStringList{u"set"_s, u"HKCU"_s, u"n"_s, u"x"_s}})
        EXPECT_EQ(Tool(words).status, 2) << words.join(u' ').toStdString();
    EXPECT_FALSE(QFile::exists(platform::UserRegistryFile()));
}

TEST_F(RegistryCommandTest, DamagedFileIsReported) {
    WriteBytes(platform::UserRegistryFile(), "no registry");
    EXPECT_EQ(Tool({u"list"_s}).err, u"suite-setup: レジストリのファイルが壊れています。\n"_s);
    EXPECT_EQ(Tool({u"set"_s, kKey, u"a"_s, u"b"_s}).status, 1);
    EXPECT_EQ(ReadBytes(platform::UserRegistryFile()), "no registry");
}

namespace {

class HostInstallationTest : public RegistryCommandTest {
  protected:
    /// Runs init with the folder of the built programs.
    ToolOutput Init() {
        ToolOutput output;
        QTextStream out(&output.out), err(&output.err);
        output.status = setup::RunSetup({u"init"_s, Root(), u"--staff"_s, u"1"_s},
                                        {out, err, QStringLiteral(SUITE_PROGRAMS), [] { return false; }});
        return output;
    }
    QString Root() const { return folder.filePath(u"suite"_s); }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(HostInstallationTest, InitInstallsTheHostUnderItsNameAndRegistersItsFolderWithSeparator) {
    ASSERT_EQ(Init().status, 0);
    const QString host = Root() + u"/host/OFFICE16/MSACCESS.EXE"_s;
    EXPECT_TRUE(QFile::permissions(host).testFlag(QFile::ExeOwner));
    EXPECT_EQ(ReadBytes(host), ReadBytes(QStringLiteral(SUITE_PROGRAMS "/report-host")));
    EXPECT_EQ(Tool({u"get"_s, setup::ReportHostKey(), u"Path"_s}).out, Root() + u"/host/OFFICE16/\n"_s);
    EXPECT_EQ(setup::ReportHostKey(), u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE"_s);
}

TEST_F(HostInstallationTest, WhoMayNotRegisterGetsTheInstallationAndTheCommandToRun) {
    WriteBytes(platform::MachineRegistryFile(), "damaged");  // can't be written, as without permission
    const ToolOutput output = Init();
    EXPECT_EQ(output.status, 0);
    EXPECT_TRUE(output.err.contains(
        u"suite-setup registry set '%1' Path '%2/host/OFFICE16/'"_s.arg(setup::ReportHostKey(), Root())))
        << output.err.toStdString();
    EXPECT_TRUE(QFile::exists(Root() + u"/prgbin/suite-setup"_s));
}

TEST(PrinterCommand, TargetIsSetForTheCommonTemplatesAndAllPrivateCopies) {
    const SampleInstallation installation;
    const QString own = installation.UserFolder(u"tanaka"_s) + u"/report"_s;
    ASSERT_TRUE(QDir().mkpath(own));
    const QString common = installation.ReportFolder() + u"/repfrmdb.accdb"_s;
    ASSERT_TRUE(QFile::copy(common, own + u"/repfrmdb.accdb"_s));
    const ToolOutput chosen = RunTool({u"printer"_s, installation.Root(), u"--to-printer"_s, u"office"_s});
    EXPECT_EQ(chosen.status, 0);
    EXPECT_EQ(chosen.out, common + u": プリンター office\n"_s + own + u"/repfrmdb.accdb: プリンター office\n"_s);
    RunTool({u"printer"_s, installation.Root(), u"--to-folder"_s, own, u"--report"_s, u"要員名簿照会"_s});
    EXPECT_TRUE(RunTool({u"printer"_s, installation.Root(), u"--report"_s, u"要員名簿照会"_s})
                    .out.startsWith(common + u": フォルダ "_s + own + u'\n'));
    EXPECT_TRUE(RunTool({u"printer"_s, installation.Root()}).out.startsWith(common + u": プリンター office\n"_s));
    RunTool({u"printer"_s, installation.Root(), u"--to-default"_s});
    EXPECT_TRUE(RunTool({u"printer"_s, installation.Root()}).out.startsWith(common + u": 通常使うプリンター\n"_s));
}

TEST(PrinterCommand, WrongWordsAreRefused) {
    const SampleInstallation installation;
    EXPECT_EQ(RunTool({u"printer"_s, u"/nowhere"_s}).err.section(u'\n', 0, 0),
              u"suite-setup: /nowhere に帳票ファイルがありません。"_s);
    EXPECT_EQ(RunTool({u"printer"_s, installation.Root(), u"--to-folder"_s, u"/nowhere"_s}).status, 2);
    EXPECT_EQ(RunTool({u"printer"_s, installation.Root(), u"--to-default"_s, u"--to-printer"_s, u"a"_s}).status, 2);
}
