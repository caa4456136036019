#include "platform/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstring>

#include "platform/FileRights.h"
#include "support/FileBytes.h"
#include "support/FileSizeLimit.h"

using namespace Qt::StringLiterals;
using platform::ScratchFolder;
using platform::ScratchLeftover;

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

    QTemporaryDir parent;
};

}  // namespace

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

TEST_F(ScratchFolders, FullDiskIsReported) {
    const FileSizeLimit full(0);
    const ScratchFolder work(parent.path(), kPrefix, "note");
    EXPECT_FALSE(work.IsValid());
    EXPECT_EQ(work.Error(), QString::fromLocal8Bit(::strerror(EFBIG)));
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
