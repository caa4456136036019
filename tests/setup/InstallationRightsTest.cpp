// Group and modes of all entries of an installation, independent of its creator and of the umask.

#include "setup/RightsFixture.h"

TEST_F(InstallationRights, FollowTheGroupOfTheFolderAroundWhateverTheUmask) {
    for (const mode_t mask : {077, 022, 0}) {
        Make({u"--replace"_s}, mask);
        EXPECT_EQ(Entries(), kExpected) << "umask " << Octal(mask).toStdString();
    }
}

TEST_F(InstallationRights, FollowTheFolderAroundAlsoWithoutItsSetgidBit) {
    SetOwnerAndMode(folder.path(), 0, kClerks, 0755);
    Make();
    EXPECT_EQ(Entries(), kExpected);
}

TEST_F(InstallationRights, PreparedEmptyFolderNamesTheGroupBeforeTheFolderAround) {
    SetOwnerAndMode(folder.path(), 0, 0, 0755);
    ASSERT_TRUE(QDir().mkdir(Root()));
    SetOwnerAndMode(Root(), 0, kClerks, 02770);
    Make();
    EXPECT_EQ(Entries(), kExpected);
}

TEST_F(InstallationRights, ReplacementKeepsTheGroupThatASiteHasChosen) {
    Make();
    for (const QString& entry : {u"/conf"_s, u"/data"_s}) SetOwnerAndMode(Root() + entry, 0, kNobody, 02770);
    Make({u"--replace"_s});
    EXPECT_EQ(StatusOf(Root() + u"/report"_s).st_gid, kNobody);
}

TEST_F(InstallationRights, MakerOutsideTheGroupIsRefusedBeforeAnythingIsMade) {
    SetOwnerAndMode(folder.path(), 0, kClerks, 02777);
    const ToolOutput made = Tool({u"init"_s, folder.filePath(u"new/honten"_s)}, 022, kNobody, kNobody);
    EXPECT_EQ(made.status, 2);
    EXPECT_EQ(made.err,
              u"suite-setup: %1 のグループ 65533 に入っていないので、そのグループのインストールを作れません。\n"
              u"使い方は suite-setup --help で表示されます。\n"_s.arg(folder.path()));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

TEST_F(InstallationRights, MakerWithoutTheRightToAPlainFoldersGroupUsesTheOwnOne) {
    SetOwnerAndMode(folder.path(), 0, kClerks, 0777);
    const ToolOutput made = Tool({u"init"_s, Root(), u"--staff"_s, u"1"_s}, 022, kNobody, kNobody);
    EXPECT_EQ(made.status, 0) << made.err.toStdString();
    EXPECT_EQ(StatusOf(Root() + u"/conf/usrcnfg.accdb"_s).st_gid, kNobody);
    EXPECT_EQ(Octal(StatusOf(Root() + u"/conf"_s).st_mode), u"2770"_s);
}

TEST_F(InstallationRights, MemberOfTheGroupMayDoWhatClerksDoAndAnOutsiderNothing) {
    Make();
    const QString out = Tool({u"history"_s, Root()}, 022, kNobody, kClerks).out;
    EXPECT_EQ(out, u"履歴はまだありません。\n"_s);
    EXPECT_EQ(Tool({u"history"_s, Root()}, 022, kNobody, kNobody).status, 2);
}

TEST_F(InstallationRights, JournalsAndTheKeyOfLaterCommandsKeepToThem) {
    Make({}, 077);
    ASSERT_TRUE(QFile::remove(Root() + u"/conf/pin.key"_s));
    SampleFile(Root() + u"/data/gnrdb.accdb"_s).Execute(u"UPDATE M担当者 SET 暗証番号 = 'ABCD'"_s);
    for (const QStringList& arguments :
         {QStringList{u"seal-pins"_s, Root()}, QStringList{u"move"_s, Root()},
          QStringList{u"printer"_s, Root(), u"--to-folder"_s, folder.path()}, QStringList{u"upgrade"_s, Root()}})
        EXPECT_EQ(Tool(arguments, 077).status, 0) << arguments.first().toStdString();
    EXPECT_EQ(Entries(), kExpected);
}

TEST_F(InstallationRights, FilesAddedByAnUpgradeKeepToThem) {
    Make();
    for (const QString& file : {u"/manual/要員名簿照会.doc"_s, u"/prgbin/要員台帳更新"_s})
        ASSERT_TRUE(QFile::remove(Root() + file));
    const ToolOutput upgraded = Tool({u"upgrade"_s, Root()}, 077);
    EXPECT_EQ(upgraded.status, 0) << upgraded.err.toStdString();
    EXPECT_EQ(Entries(), kExpected);
}

TEST_F(InstallationRights, JournalOfTheHistoryBelongsToTheGroupUnderANarrowUmask) {
    Make();
    const QString file = Root() + u"/conf/usrcnfg.accdb"_s;
    const mode_t kept = ::umask(077);
    {
        database::Connection history;
        history.Open(u"Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source="_s + file + u';');
        database::Transaction row(history);
        history.Execute(u"INSERT INTO プログラム稼動履歴 (実行日付) VALUES ('20261121 093015')"_s);
        const struct stat journal = StatusOf(file + u"-journal"_s);
        EXPECT_EQ(Octal(journal.st_mode), u"0660"_s);
        EXPECT_EQ(journal.st_gid, kClerks);
        row.Commit();
    }
    ::umask(kept);
}
