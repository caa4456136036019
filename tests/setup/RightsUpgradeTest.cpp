// Group and modes of installations made by earlier versions, including entries added by others.

#include "setup/RightsFixture.h"

TEST_F(InstallationRights, CheckNamesThoseOfEarlierVersionsAndTheCommandThatCorrectsThem) {
    MakeAsBefore();
    const ToolOutput before = Check();
    EXPECT_EQ(before.status, 1);
    EXPECT_TRUE(before.out.startsWith(u"・権限が違います。\n  %1: 0755 root → 2750 65533\n"_s.arg(Root())))
        << before.out.toStdString();
    EXPECT_TRUE(
        before.out.endsWith(u"  影響: ほかの利用者が使えないか、関係のない人が読み書きできます。\n"
                            u"  対処: 次を所有者か root が実行してください。\n"
                            u"    suite-setup upgrade '%1'\n"_s.arg(Root())))
        << before.out.toStdString();
    for (const QString& line : {u"/data/gnrdb.accdb: 0664 root → 0660 65533\n"_s, u"/users: 2775 root → 3770 65533\n"_s,
                                u"/host/OFFICE16/MSACCESS.EXE: 0755 root → 0750 65533\n"_s})
        EXPECT_TRUE(before.out.contains(u"  "_s + Root() + line)) << line.toStdString();
    const ToolOutput upgraded = Tool({u"upgrade"_s, Root()}, 077);
    EXPECT_EQ(upgraded.status, 0) << upgraded.err.toStdString();
    EXPECT_TRUE(upgraded.out.contains(u"権限を直しました。%1/conf: 2775 root → 2770 65533\n"_s.arg(Root())));
    EXPECT_EQ(Entries(), kExpected);
    EXPECT_EQ(Check().out, u"問題はありません。\n"_s);
    EXPECT_EQ(Tool({u"upgrade"_s, Root()}).out, u"このインストールは新しい版になっています。\n"_s);
}

TEST_F(InstallationRights, UpgradeFailsAfterItsOtherWorkWhereAnotherOwnerHasToCorrectThem) {
    MakeAsBefore();
    SetOwnerAndMode(folder.path(), 0, kClerks, 0755);
    QDirIterator all(Root(), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString entry = all.next();
        SetOwnerAndMode(entry, kNobody, kNobody, StatusOf(entry).st_mode & 07777);
    }
    SetOwnerAndMode(Root(), kNobody, kNobody, 0755);
    SetOwnerAndMode(Root() + u"/data/gnrdb.accdb"_s, 0, kNobody, 0664);
    SampleFile(Root() + u"/conf/usrcnfg.accdb"_s).Execute(u"ALTER TABLE 動作環境定義 DROP COLUMN バックアップ方法"_s);
    const ToolOutput upgraded = Tool({u"upgrade"_s, Root()}, 022, kNobody, kNobody);
    EXPECT_EQ(upgraded.status, 1);
    EXPECT_TRUE(upgraded.out.contains(u"列 動作環境定義.バックアップ方法 を追加しました。\n"_s));
    EXPECT_EQ(upgraded.err,
              u"suite-setup: 権限を直せません。所有者か root で実行してください。\n"
              u"%1/data/gnrdb.accdb: 0664 nogroup → 0660 nogroup\n"_s.arg(Root()));
    EXPECT_EQ(Octal(StatusOf(Root() + u"/conf"_s).st_mode), u"2770"_s);
}

TEST_F(InstallationRights, LinksAndFilesWithASecondNameAreLeftAlone) {
    MakeAsBefore();
    const QString secret = folder.filePath(u"secret"_s), other = folder.filePath(u"other"_s);
    for (const QString& file : {secret, other}) {
        WriteBytes(file, "not of the installation");
        SetOwnerAndMode(file, 0, 0, 0600);
    }
    ASSERT_TRUE(QFile::link(secret, Root() + u"/data/link"_s));
    ASSERT_TRUE(QFile::link(folder.path(), Root() + u"/users/link"_s));
    ASSERT_EQ(::link(QFile::encodeName(other).constData(), QFile::encodeName(Root() + u"/data/second"_s).constData()),
              0);
    EXPECT_EQ(Tool({u"upgrade"_s, Root()}).status, 1);
    for (const QString& file : {secret, other}) {
        EXPECT_EQ(Octal(StatusOf(file).st_mode), u"0600"_s);
        EXPECT_EQ(StatusOf(file).st_gid, 0U);
    }
    EXPECT_EQ(Octal(StatusOf(folder.path()).st_mode), u"2755"_s);
}

TEST_F(InstallationRights, HiddenFilesAreCorrectedToo) {
    MakeAsBefore();
    for (const QString& name : {u"/data/.hidden"_s, u"/prgbin/.hidden"_s}) {
        WriteBytes(Root() + name, "");
        SetOwnerAndMode(Root() + name, 0, 0, 0644);
    }
    EXPECT_EQ(Tool({u"upgrade"_s, Root()}).status, 0);
    EXPECT_EQ(Octal(StatusOf(Root() + u"/data/.hidden"_s).st_mode), u"0660"_s);
    EXPECT_EQ(Octal(StatusOf(Root() + u"/prgbin/.hidden"_s).st_mode), u"0640"_s);
}

TEST_F(InstallationRights, FolderOfAUserIsClosedToTheGroup) {
    MakeAsBefore();
    const QString own = Root() + u"/users/nobody"_s;
    ASSERT_TRUE(QDir().mkdir(own));
    SetOwnerAndMode(own, kNobody, kNobody, 02755);
    EXPECT_TRUE(Check().out.contains(u"%1: 2755 nogroup → 2700 nogroup\n"_s.arg(own)));
    EXPECT_EQ(Tool({u"upgrade"_s, Root()}).status, 0);
    EXPECT_EQ(Octal(StatusOf(own).st_mode), u"2700"_s);
    EXPECT_EQ(StatusOf(own).st_uid, kNobody);
}
