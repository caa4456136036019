#include <gtest/gtest.h>

#include <QDir>

#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/LinkAnswers.h"

using namespace Qt::StringLiterals;

namespace {

/// The clock is fixed at 2026/11/21 09:30:15.
class Links : public ::testing::Test {
  protected:
    Links() : installation({.staff = 1}) {}
    QString Output(const QStringList& more = {}) const {
        const ToolOutput output = RunTool(QStringList{u"links"_s, installation.Root()} + more);
        EXPECT_EQ(output.status, 0);
        EXPECT_EQ(output.err, QString());
        return output.out;
    }
    QStringList Ages() const {
        QStringList ages;
        for (const QString& line : Output().split(u'\n').mid(1)) ages << line.simplified().section(u' ', 0, 0);
        ages.removeLast();
        return ages;
    }

    TestServices services;
    SampleInstallation installation;
};

}  // namespace

TEST_F(Links, WaitingMessagesAreListedOldestFirstWithTheirAge) {
    AddLinkRow(installation.Configuration(),
               {.sentAt = u"20261121 093010"_s, .key = u"00000012"_s, .endText = u"済"_s});
    AddLinkRow(installation.Configuration(), {.sentAt = u"20261121 092745"_s,
                                              .sender = u"販路推進"_s,
                                              .receiver = u"要員名簿照会"_s,
                                              .kind = u"00"_s,
                                              .key = u"000"_s});
    EXPECT_EQ(
        Output().toStdString(),
        (u"経過  発信日時             区分  発信プログラム  受信プログラム  事業所  担当者  利用者  起動連携情報  "
         u"終了連携情報\n"
         u" 2分  2026/11/21 09:27:45  開始  販路推進        要員名簿照会    000     00001   tester  000           \n"
         u" 5秒  2026/11/21 09:30:10  終了  要員名簿照会    要員台帳更新    000     00001   tester  00000012      済\n"_s)
            .toStdString());
}

TEST_F(Links, AgeIsInWholeUnitsOfTheLargestKind) {
    const QStringList stamps = {u"20261118 093015"_s, u"20261120 093016"_s, u"20261121 083015"_s,
                                u"20261121 083016"_s, u"20261121 092915"_s, u"20261121 092916"_s,
                                u"20261121 093015"_s, u"20261121 093115"_s, u"so early"_s};
    for (const QString& stamp : stamps) AddLinkRow(installation.Configuration(), {.sentAt = stamp, .key = u"000"_s});
    EXPECT_EQ(Ages(), (QStringList{u"3日"_s, u"23時間"_s, u"1時間"_s, u"59分"_s, u"1分"_s, u"59秒"_s, u"0秒"_s,
                                   u"-1分"_s, u"不明"_s}));
}

TEST_F(Links, EmptyChannelIsSaid) { EXPECT_EQ(Output(), u"待っている連携情報はありません。\n"_s); }

TEST_F(Links, UserNarrowsTheSharedChannel) {
    AddLinkRow(installation.Configuration(), {.sentAt = u"20261121 093010"_s, .key = u"000"_s});
    EXPECT_TRUE(Output({u"--user"_s, u"tester"_s}).contains(u"09:30:10"_s));
    EXPECT_EQ(Output({u"--user"_s, u"nobody"_s}), u"待っている連携情報はありません。\n"_s);
}

TEST_F(Links, UserWithoutAccountAndRowsIsRefused) {
    const ToolOutput output = RunTool({u"links"_s, installation.Root(), u"--user"_s, u"no-such-user"_s});
    EXPECT_EQ(output.status, 2);
    EXPECT_TRUE(output.err.startsWith(u"suite-setup: 利用者 no-such-user はいません。\n"_s))
        << output.err.toStdString();
}

TEST_F(Links, PrivateChannelsAreListedByUser) {
    installation.SetEnvironment(u"インストール区分"_s, u"1"_s);
    EXPECT_EQ(Output(), u"待っている連携情報はありません。\n"_s) << "nobody has started a program yet";
    for (const QString& user : {u"sato"_s, u"abe"_s}) {
        const QString conf = installation.UserFolder(user) + u"/conf"_s;
        ASSERT_TRUE(QDir().mkpath(conf));
        ASSERT_TRUE(QFile::copy(installation.Configuration().Path(), conf + u"/usrcnfg.accdb"_s));
    }
    AddLinkRow(SampleFile(installation.UserFolder(u"sato"_s) + u"/conf/usrcnfg.accdb"_s),
               {.sentAt = u"20261121 093010"_s, .key = u"00000012"_s});
    AddLinkRow(installation.Configuration(), {.sentAt = u"20261121 093011"_s, .key = u"000"_s});
    const QString out = Output();
    EXPECT_TRUE(out.startsWith(u"利用者 abe\n待っている連携情報はありません。\n\n利用者 sato\n経過  "_s))
        << out.toStdString();
    EXPECT_TRUE(out.contains(u"09:30:10"_s));
    EXPECT_FALSE(out.contains(u"09:30:11"_s)) << "nobody looks at the common file's channel";
    EXPECT_TRUE(Output({u"--user"_s, u"sato"_s}).startsWith(u"利用者 sato\n"_s));
    EXPECT_EQ(RunTool({u"links"_s, installation.Root(), u"--user=mori"_s}).status, 2);
}

TEST_F(Links, LookingWritesNothing) {
    AddLinkRow(installation.Configuration(), {.sentAt = u"20261121 093010"_s, .key = u"000"_s});
    const QByteArray before = ReadBytes(installation.Configuration().Path());
    Output();
    EXPECT_EQ(ReadBytes(installation.Configuration().Path()), before);
}

TEST_F(Links, FolderWithoutAnInstallationIsRefused) {
    const ToolOutput output = RunTool({u"links"_s, installation.Root() + u"/data"_s});
    EXPECT_EQ(output.status, 2);
    EXPECT_TRUE(output.err.contains(u"インストールがありません。"_s));
}

TEST_F(Links, UnreadableConfigurationIsAFailure) {
    WriteBytes(installation.Configuration().Path(), QByteArray(8192, 'x'));
    EXPECT_EQ(RunTool({u"links"_s, installation.Root()}).status, 1);
}

TEST_F(Links, InstallKindIsTheNumericValueOfItsTextAsInThePrograms) {
    const QString none = u"待っている連携情報はありません。\n"_s;
    for (const QString& privateCopies : {u"1"_s, u"01"_s, u" 1"_s, u"1 "_s, u"1.0"_s}) {
        installation.SetEnvironment(u"インストール区分"_s, privateCopies);
        EXPECT_EQ(RunTool({u"links"_s, installation.Root(), u"--user"_s, u"nobody"_s}).status, 2)
            << privateCopies.toStdString();
    }
    for (const QString& shared : {u"0"_s, u"00"_s, u""_s, u"　1"_s, u"x1"_s, QString()}) {
        installation.SetEnvironment(u"インストール区分"_s, shared);
        EXPECT_EQ(Output({u"--user"_s, u"nobody"_s}), none) << shared.toStdString();
    }
}
