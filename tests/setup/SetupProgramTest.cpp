#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

const QString kTool = QStringLiteral(SUITE_PROGRAMS) + u"/suite-setup"_s;
constexpr int kTimeout = 30000;

}  // namespace

TEST(SetupProgram, UsageErrorIsExitStatusTwoWithItsTextOnStandardError) {
    QProcess tool;
    tool.start(kTool, {u"destroy"_s});
    ASSERT_TRUE(tool.waitForFinished(kTimeout));
    EXPECT_EQ(tool.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(tool.exitCode(), 2);
    EXPECT_TRUE(tool.readAllStandardError().contains("suite-setup: コマンド destroy はありません。\n"));
    EXPECT_EQ(tool.readAllStandardOutput(), QByteArray());
}

TEST(SetupProgram, InitPutsTheToolItselfIntoTheInstallation) {
    const QTemporaryDir folder;
    QProcess tool;
    tool.start(kTool, {u"init"_s, folder.filePath(u"suite"_s), u"--staff"_s, u"2"_s});
    ASSERT_TRUE(tool.waitForFinished(kTimeout));
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
    EXPECT_TRUE(QFileInfo(folder.filePath(u"suite/prgbin/suite-setup"_s)).isExecutable());
}

TEST(SetupProgram, FollowEndsInOrderWhenItIsInterrupted) {
    const SampleInstallation installation({.staff = 1});
    QProcess tool;
    tool.start(kTool, {u"history"_s, installation.Root(), u"--follow"_s});
    ASSERT_TRUE(tool.waitForReadyRead(kTimeout));
    EXPECT_EQ(tool.readAllStandardOutput(), "履歴はまだありません。\n");
    tool.terminate();
    ASSERT_TRUE(tool.waitForFinished(kTimeout));
    EXPECT_EQ(tool.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(tool.exitCode(), 0);
}
