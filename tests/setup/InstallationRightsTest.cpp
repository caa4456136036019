// Group and modes of all entries of an installation, independent of its maker and of the umask.

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "platform/Database.h"
#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t kNobody = 65534;
constexpr gid_t kClerks = 65533;  // has no name, and is no default group of the user nobody
constexpr int kTimeout = 60000;   // milliseconds

struct stat StatusOf(const QString& path) {
    struct stat found = {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &found), 0) << path.toStdString();
    return found;
}

QString Octal(unsigned mode) { return QString::number(mode & 07777U, 8).rightJustified(4, u'0'); }

void SetOwnerAndMode(const QString& path, uid_t owner, gid_t group, mode_t mode) {
    const QByteArray name = QFile::encodeName(path);
    ASSERT_EQ(::lchown(name.constData(), owner, group), 0);
    ASSERT_EQ(::chmod(name.constData(), mode), 0);
}

/// A folder around installations that belongs to the group of the clerks, as the documents recommend.
class InstallationRights : public testing::Test {
  protected:
    InstallationRights() {
        if (::geteuid() != 0) return;
        SetOwnerAndMode(folder.path(), 0, kClerks, 02755);
    }
    void SetUp() override {
        if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can give files to a group of others";
    }

    QString Root() const { return folder.filePath(u"honten"_s); }
    /// Runs the tool as a separate program, under a umask, as the superuser or another user.
    ToolOutput Tool(const QStringList& arguments, mode_t mask = 022, uid_t user = 0, gid_t group = 0) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"MEIBO_MACHINE_REGISTRY"_s, folder.filePath(u"registry"_s));
        process.setProcessEnvironment(environment);
        process.setChildProcessModifier([=] {
            ::umask(mask);
            if (user != 0 && (::setgroups(0, nullptr) != 0 || ::setgid(group) != 0 || ::setuid(user) != 0)) ::_exit(9);
        });
        process.start((user == 0 ? QStringLiteral(SUITE_PROGRAMS) : Programs()) + u"/suite-setup"_s, arguments);
        EXPECT_TRUE(process.waitForFinished(kTimeout));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    /// Copies of the programs where every user can start them.
    static QString Programs() {
        static const QTemporaryDir copies(u"/tmp/meibo-programs-XXXXXX"_s);
        if (QDir(copies.path()).isEmpty()) {
            SetOwnerAndMode(copies.path(), 0, 0, 0755);
            for (const QString& program : {u"要員名簿照会"_s, u"要員台帳更新"_s, u"suite-setup"_s, u"report-host"_s})
                QFile::copy(QStringLiteral(SUITE_PROGRAMS "/") + program, copies.filePath(program));
        }
        return copies.path();
    }
    void Make(const QStringList& options = {}, mode_t mask = 022) const {
        const ToolOutput made = Tool(QStringList{u"init"_s, Root(), u"--staff"_s, u"2"_s} + options, mask);
        ASSERT_EQ(made.status, 0) << made.err.toStdString();
    }
    /// "conf/pin.key 0640 65533" of every entry, in the order of their paths.
    QStringList Entries() const {
        QStringList lines;
        const auto add = [&](const QString& name, const QString& path) {
            const struct stat found = StatusOf(path);
            lines.append(u"%1 %2 %3"_s.arg(name, Octal(found.st_mode)).arg(found.st_gid));
        };
        QDirIterator all(Root(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QString path = all.next();
            add(path.mid(Root().size() + 1), path);
        }
        lines.sort();
        add(u"."_s, Root());
        return lines;
    }
    /// What earlier versions made as root: everything readable by everybody, in the maker's own group.
    void MakeAsBefore() const {
        Make();
        QDirIterator all(Root(), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QFileInfo entry(all.next());
            const bool key = entry.fileName() == u"pin.key"_s;
            const mode_t file = key ? 0640 : entry.isExecutable() ? 0755 : 0664;
            SetOwnerAndMode(entry.filePath(), 0, 0, entry.isDir() ? 02775 : file);
        }
        SetOwnerAndMode(Root(), 0, 0, 0755);
    }
    ToolOutput Check() const { return Tool({u"check"_s, Root()}); }

    // Not in the tests' usual folder, which other users can't reach.
    QTemporaryDir folder{u"/tmp/meibo-rights-XXXXXX"_s};
};

const QStringList kExpected = {
    u"conf 2770 65533"_s,
    u"conf/pin.key 0640 65533"_s,
    u"conf/usrcnfg.accdb 0660 65533"_s,
    u"data 2770 65533"_s,
    u"data/gnrdb.accdb 0660 65533"_s,
    u"host 2750 65533"_s,
    u"host/OFFICE16 2750 65533"_s,
    u"host/OFFICE16/MSACCESS.EXE 0750 65533"_s,
    u"manual 2750 65533"_s,
    u"manual/要員名簿照会.doc 0640 65533"_s,
    u"prgbin 2750 65533"_s,
    u"prgbin/suite-setup 0750 65533"_s,
    u"prgbin/空白.jpg 0640 65533"_s,
    u"prgbin/要員台帳更新 0750 65533"_s,
    u"prgbin/要員名簿照会 0750 65533"_s,
    u"report 2770 65533"_s,
    u"report/repdb.accdb 0660 65533"_s,
    u"report/repfrmdb.accdb 0660 65533"_s,
    u"users 3770 65533"_s,
    u". 2750 65533"_s,
};

}  // namespace

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

TEST_F(InstallationRights, JournalOfTheHistoryBelongsToTheGroupUnderANarrowUmask) {
    Make();
    const QString file = Root() + u"/conf/usrcnfg.accdb"_s;
    const mode_t kept = ::umask(077);
    {
        platform::Connection history;
        history.Open(u"Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source="_s + file + u';');
        platform::Transaction row(history);
        history.Execute(u"INSERT INTO プログラム稼動履歴 (実行日付) VALUES ('20261121 093015')"_s);
        const struct stat journal = StatusOf(file + u"-journal"_s);
        EXPECT_EQ(Octal(journal.st_mode), u"0660"_s);
        EXPECT_EQ(journal.st_gid, kClerks);
        row.Commit();
    }
    ::umask(kept);
}

TEST_F(InstallationRights, CheckNamesThoseOfEarlierVersionsAndTheCommandThatCorrectsThem) {
    MakeAsBefore();
    const ToolOutput before = Check();
    EXPECT_EQ(before.status, 1);
    EXPECT_TRUE(
        before.out.startsWith(u"・権限が違います。次を、所有者か root が実行すると直ります。\n"
                              u"    suite-setup upgrade '%1'\n"
                              u"  %1: 0755 root → 2750 65533\n"_s.arg(Root())))
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
