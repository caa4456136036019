#include "platform/ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <functional>
#include <thread>

#include "platform/FileRights.h"
#include "support/FileBytes.h"
#include "support/FileSizeLimit.h"
#include "support/GivenAway.h"
#include "support/WithoutFileRights.h"

using namespace Qt::StringLiterals;
using platform::ScratchFolder;
using platform::ScratchLeftover;

namespace {

/// Called with the link of the locked file below /proc after each successful lock.
std::function<void(const QString& open)> onLock;

}  // namespace

/// Takes the place of the C library's flock in this program; under that name it would hide the structure.
extern "C" int WatchedFlock(int descriptor, int operation) __asm__("flock");
extern "C" int WatchedFlock(int descriptor, int operation) {
    const int result = static_cast<int>(::syscall(SYS_flock, descriptor, operation));
    if (result == 0 && onLock) onLock(u"/proc/self/fd/%1"_s.arg(descriptor));
    return result;
}

namespace {

const QString kPrefix = u".work-"_s;

class ScratchFolders : public testing::Test {
  protected:
    QStringList Entries() const {
        return QDir(parent.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    /// Leaves a folder as a killed process does.
    void LeaveOne(const QByteArray& note) const {
        const pid_t child = ::fork();
        if (child == 0) {
            const ScratchFolder work(parent.path(), kPrefix, note);
            WriteBytes(work.FilePath(u"staff"_s), "names");
            QDir().mkpath(work.FilePath(u"old/data"_s));
            ::_exit(work.IsValid() ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }
    QList<ScratchLeftover> Leftovers() const { return platform::ScratchLeftovers(parent.path(), kPrefix); }

    QString Lock() const { return parent.filePath(Entries().first()) + u"/in-use"_s; }

    // Other users can't enter the usual folder of the tests.
    QTemporaryDir parent{u"/tmp/meibo-scratch-XXXXXX"_s};
};

}  // namespace

// The cleanup of another process takes a new folder for a leftover.
TEST_F(ScratchFolders, FolderThatIsRemovedAtEachAttemptIsAnErrorWithItsReason) {
    int attempts = 0;
    onLock = [&](const QString& open) {
        ++attempts;
        QFile::remove(QFile::symLinkTarget(open));
    };
    const ScratchFolder work(parent.path(), kPrefix);
    onLock = nullptr;
    EXPECT_FALSE(work.IsValid());
    EXPECT_EQ(attempts, 100);
    EXPECT_EQ(work.Error(), u"フォルダが作成の途中で削除されました。"_s);
    EXPECT_EQ(Entries(), QStringList());
}

TEST_F(ScratchFolders, AreForTheirUserAloneAndGoWithTheirObject) {
    {
        const ScratchFolder work(parent.path(), kPrefix);
        ASSERT_TRUE(work.IsValid());
        ASSERT_EQ(Entries().size(), 1);
        EXPECT_EQ(platform::RightsOf(parent.filePath(Entries().first()))->mode & 0777U, 0700U);
        WriteBytes(work.FilePath(u"staff"_s), "names");
    }
    EXPECT_EQ(Entries(), QStringList());
}

TEST_F(ScratchFolders, StayWhenTheyAreKept) {
    {
        ScratchFolder work(parent.path(), kPrefix);
        work.Keep();
    }
    EXPECT_EQ(Entries().size(), 1);
}

TEST_F(ScratchFolders, FailureIsReported) {
    const ScratchFolder work(parent.filePath(u"missing"_s), kPrefix);
    EXPECT_FALSE(work.IsValid());
    EXPECT_EQ(work.Error(), QString::fromLocal8Bit(::strerror(ENOENT)));
}

TEST_F(ScratchFolders, FullDiskIsReportedAndLeavesNothing) {
    const FileSizeLimit full(0);
    const ScratchFolder work(parent.path(), kPrefix, "/srv/honten");
    EXPECT_FALSE(work.IsValid());
    EXPECT_EQ(work.Error(), QString::fromLocal8Bit(::strerror(EFBIG)));
    EXPECT_EQ(Entries(), QStringList());
}

TEST_F(ScratchFolders, LockIsNotInheritedByProgramsThatAreStarted) {
    const ScratchFolder work(parent.path(), kPrefix);
    int locks = 0;
    for (const QFileInfo& entry : QDir(u"/proc/self/fd"_s).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
        if (entry.symLinkTarget() != Lock()) continue;
        ++locks;
        EXPECT_EQ(::fcntl(entry.fileName().toInt(), F_GETFD), FD_CLOEXEC);
    }
    EXPECT_EQ(locks, 1);
}

TEST_F(ScratchFolders, AreMadeWhileAnotherProcessRemovesLeftovers) {
    std::atomic_bool made = false;
    std::thread cleaner([&] {
        while (!made) platform::RemoveScratchLeftovers(parent.path(), kPrefix);
    });
    for (int i = 0; i < 400; ++i) {
        const ScratchFolder work(parent.path(), kPrefix, "note");
        EXPECT_TRUE(work.IsValid()) << work.Error().toStdString();
        EXPECT_TRUE(QFile::exists(work.FilePath(u"in-use"_s)));
    }
    made = true;
    cleaner.join();
    platform::RemoveScratchLeftovers(parent.path(), kPrefix);
    EXPECT_EQ(Entries(), QStringList());
}

TEST_F(ScratchFolders, LeftoversOfKilledProcessesAreFoundWithTheirNotesAndRemoved) {
    LeaveOne("/srv/honten");
    const QList<ScratchLeftover> found = Leftovers();
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].path, parent.filePath(Entries().first()));
    EXPECT_EQ(found[0].owner, platform::OwnUserId());
    EXPECT_EQ(found[0].note, "/srv/honten");
    EXPECT_TRUE(found[0].known);
    platform::RemoveScratchLeftovers(parent.path(), kPrefix);
    EXPECT_EQ(Entries(), QStringList());
}

TEST_F(ScratchFolders, FolderOfARunningProcessIsNoLeftover) {
    const ScratchFolder work(parent.path(), kPrefix);
    const QStringList before = Entries();
    EXPECT_EQ(Leftovers().size(), 0);
    EXPECT_FALSE(platform::RemoveScratchLeftover({parent.filePath(before.first()), platform::OwnUserId(), {}, true}));
    platform::RemoveScratchLeftovers(parent.path(), kPrefix);
    EXPECT_EQ(Entries(), before);
}

TEST_F(ScratchFolders, OthersWithSuchANameAreLeftAlone) {
    ASSERT_TRUE(QDir(parent.path()).mkpath(u".work-letter/private"_s));
    ASSERT_TRUE(QDir(parent.path()).mkdir(u".work-longer-name"_s));
    ASSERT_TRUE(QDir(parent.path()).mkdir(u"target"_s));
    ASSERT_TRUE(QFile::link(parent.filePath(u"target"_s), parent.filePath(u".work-linked"_s)));
    const QStringList before = Entries();
    platform::RemoveScratchLeftovers(parent.path(), kPrefix);
    EXPECT_EQ(Entries(), before);
    ASSERT_EQ(Leftovers().size(), 1);
    EXPECT_EQ(Leftovers()[0].path, parent.filePath(u".work-letter"_s));
    EXPECT_FALSE(Leftovers()[0].known);
}

TEST_F(ScratchFolders, LeftoverOfAnotherUserIsNamedAndNotRemoved) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
    LeaveOne({});
    const QString folder = parent.filePath(Entries().first());
    ASSERT_EQ(::chown(QFile::encodeName(folder).constData(), 65534, 65534), 0);
    platform::RemoveScratchLeftovers(parent.path(), kPrefix);
    ASSERT_EQ(Leftovers().size(), 1);
    EXPECT_EQ(Leftovers()[0].owner, 65534U);
}

TEST_F(ScratchFolders, LinkInALeftoverIsRemovedAndNotFollowed) {
    LeaveOne({});
    ASSERT_TRUE(QDir(parent.path()).mkdir(u"target"_s));
    WriteBytes(parent.filePath(u"target/letter"_s), "mine");
    ASSERT_TRUE(QFile::link(parent.filePath(u"target"_s), parent.filePath(Entries().first()) + u"/link"_s));
    platform::RemoveScratchLeftovers(parent.path(), kPrefix);
    EXPECT_EQ(Entries(), QStringList{u"target"_s});
    EXPECT_EQ(ReadBytes(parent.filePath(u"target/letter"_s)), "mine");
}

TEST_F(ScratchFolders, HiddenAndSpecialFilesInALeftoverAreRemoved) {
    LeaveOne({});
    const QString folder = parent.filePath(Entries().first());
    WriteBytes(folder + u"/.hidden"_s, "names");
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder + u"/pipe"_s).constData(), 0600), 0);
    MakeLink(u"/nowhere"_s, folder + u"/dangling"_s);
    platform::RemoveScratchLeftovers(parent.path(), kPrefix);
    EXPECT_EQ(Entries(), QStringList());
}

TEST_F(ScratchFolders, LeftoverThatCannotBeRemovedIsStillKnownAsOne) {
    LeaveOne("/srv/honten");
    const QString kept = parent.filePath(Entries().first()) + u"/old"_s;
    SetModeOf(kept, 0500);
    {
        const WithoutFileRights user;
        EXPECT_FALSE(platform::RemoveScratchLeftover(Leftovers().value(0)));
    }
    ASSERT_EQ(Leftovers().size(), 1);
    EXPECT_TRUE(Leftovers()[0].known);
    EXPECT_EQ(Leftovers()[0].note, "/srv/honten");
    SetModeOf(kept, 0700);
    EXPECT_TRUE(platform::RemoveScratchLeftover(Leftovers()[0]));
}

TEST_F(ScratchFolders, LinkOrPipeInPlaceOfTheLockIsNotOpened) {
    LeaveOne({});
    ASSERT_TRUE(QFile::remove(Lock()));
    const QString letter = parent.filePath(u"letter"_s);
    WriteBytes(letter, "private");
    MakeLink(letter, Lock());
    const QStringList before = Entries();
    EXPECT_EQ(Leftovers().size(), 0);
    platform::RemoveScratchLeftovers(parent.path(), kPrefix);
    EXPECT_EQ(Entries(), before);
    ASSERT_TRUE(QFile::remove(Lock()));
    ASSERT_EQ(::mkfifo(QFile::encodeName(Lock()).constData(), 0600), 0);
    ASSERT_EQ(Leftovers().size(), 1);
    EXPECT_EQ(Leftovers()[0].note, "") << "read at once";
}

TEST_F(ScratchFolders, OnlyFoundLeftoversAreRemovedAndThoseFoundAreSorted) {
    for (const QString& name : {u".work-000002"_s, u".work-000001"_s, u".work-000003"_s}) {
        ASSERT_TRUE(QDir(parent.path()).mkdir(name));
        WriteBytes(parent.filePath(name + u"/in-use"_s), "");
    }
    const QList<ScratchLeftover> found = Leftovers();
    ASSERT_EQ(found.size(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(found[i].path, parent.filePath(u".work-00000%1"_s.arg(i + 1)));
    EXPECT_FALSE(platform::RemoveScratchLeftover({found[0].path, found[0].owner, {}, false}));
    EXPECT_EQ(Entries().size(), 3);
}

TEST_F(ScratchFolders, LeftoverThatIsClosedToThisUserIsNotListed) {
    REQUIRE_SUPERUSER();
    LeaveOne({});
    SetModeOf(parent.path(), 0755);
    const pid_t child = ::fork();
    if (child == 0) ::_exit(::setresuid(kNobody, kNobody, kNobody) == 0 ? static_cast<int>(Leftovers().size()) : 9);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}
