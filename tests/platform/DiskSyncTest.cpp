// What is on the disk at each step of a replacement, and failures that only fsync reports.

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cerrno>
#include <functional>

#include "platform/AtomicFile.h"
#include "platform/SealedPins.h"
#include "support/FileBytes.h"
#include "support/GivenAway.h"
#include "support/WithoutFileRights.h"

using namespace Qt::StringLiterals;

namespace {

/// Gets the link of the open file below /proc, since the file may not have a name yet. Returns the errno that fsync
/// fails with, or 0 to run it.
std::function<int(const QString& open)> onSync;

}  // namespace

/// Takes the place of the C library's function in this program.
extern "C" int fsync(int descriptor) {
    const int failure = onSync ? onSync(u"/proc/self/fd/%1"_s.arg(descriptor)) : 0;
    if (failure == 0) return static_cast<int>(::syscall(SYS_fsync, descriptor));
    errno = failure;
    return -1;
}

namespace {

class DiskSync : public testing::Test {
  protected:
    DiskSync() { WriteBytes(Target(), "old"); }
    ~DiskSync() override { onSync = nullptr; }

    QString Target() const { return folder.filePath(u"target"_s); }
    QStringList Names() const { return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }
    static bool IsFolder(const QString& open) { return QFileInfo(open).isDir(); }
    /// Replaces the target while each fsync of a file or of a folder fails. True on success.
    bool ReplaceWith(int fileFailure, int folderFailure) {
        onSync = [=](const QString& open) { return IsFolder(open) ? folderFailure : fileFailure; };
        error.clear();
        const bool replaced = platform::ReplaceFile(Target(), "new", error);
        onSync = nullptr;
        return replaced;
    }

    QTemporaryDir folder;
    QString error;
};

}  // namespace

TEST_F(DiskSync, TheWholeContentIsOnTheDiskBeforeItHasTheNameAndTheNameBeforeTheEnd) {
    QStringList steps;
    onSync = [&](const QString& open) {
        const QString what = IsFolder(open) ? u"folder"_s : QString::fromUtf8(ReadBytes(open));
        steps.append(what + u", target: "_s + QString::fromUtf8(ReadBytes(Target())));
        return 0;
    };
    EXPECT_TRUE(platform::ReplaceFile(Target(), "new", error));
    EXPECT_EQ(steps, (QStringList{u"new, target: old"_s, u"folder, target: new"_s}));
}

TEST_F(DiskSync, TheFolderOfALinksTargetIsSynced) {
    QDir(folder.path()).mkdir(u"links"_s);
    const QString link = folder.filePath(u"links/link"_s);
    ASSERT_TRUE(QFile::link(Target(), link));
    QStringList folders;
    onSync = [&](const QString& open) {
        if (IsFolder(open)) folders.append(QFileInfo(open).canonicalFilePath());
        return 0;
    };
    EXPECT_TRUE(platform::ReplaceFile(link, "new", error));
    EXPECT_EQ(folders, QStringList{QFileInfo(folder.path()).canonicalFilePath()});
    EXPECT_EQ(ReadBytes(Target()), "new");
}

TEST_F(DiskSync, AFailureForTheFileLeavesTheOldOneAndNothingBesideIt) {
    EXPECT_FALSE(ReplaceWith(EIO, 0));
    EXPECT_EQ(error, u"ディスクに書き込めません。"_s);
    EXPECT_EQ(ReadBytes(Target()), "old");
    EXPECT_EQ(Names(), QStringList{u"target"_s});
}

TEST_F(DiskSync, AFailureForTheFolderIsReported) {
    EXPECT_FALSE(ReplaceWith(0, EIO));
    EXPECT_EQ(error, u"ディスクに書き込めません。"_s);
    EXPECT_EQ(Names(), QStringList{u"target"_s});
}

TEST_F(DiskSync, AFileSystemWithoutItIsNoFailure) {
    for (const int code : {EINVAL, ENOTSUP, EROFS}) EXPECT_TRUE(ReplaceWith(code, code)) << code;
    EXPECT_EQ(ReadBytes(Target()), "new");
}

TEST_F(DiskSync, AnInterruptedCallIsRepeated) {
    int calls = 0;
    onSync = [&](const QString&) { return ++calls == 1 ? EINTR : 0; };
    EXPECT_TRUE(platform::ReplaceFile(Target(), "new", error));
    EXPECT_EQ(calls, 3);
}

TEST_F(DiskSync, AFolderThatMayNotBeReadIsNoFailureAndAMissingOneIs) {
    SetModeOf(folder.path(), 0300);
    {
        const WithoutFileRights user;
        EXPECT_TRUE(platform::SyncFolder(folder.path()));
    }
    SetModeOf(folder.path(), 0700);
    EXPECT_FALSE(platform::SyncFolder(folder.filePath(u"missing"_s)));
}

TEST_F(DiskSync, AKeyOfThePinsIsOnTheDiskBeforeItHasItsNameOrIsNotLeft) {
    const QString file = folder.filePath(u"pin.key"_s);
    for (const bool ofFolder : {false, true}) {
        onSync = [&](const QString& open) { return IsFolder(open) == ofFolder ? EIO : 0; };
        EXPECT_FALSE(platform::PinKey().Write(file));
        EXPECT_EQ(Names(), QStringList{u"target"_s}) << ofFolder;
    }
    QStringList steps;
    onSync = [&](const QString& open) {
        steps.append(u"%1, named: %2"_s.arg(IsFolder(open) ? u"folder"_s : QString::number(ReadBytes(open).size()))
                         .arg(QFile::exists(file)));
        return 0;
    };
    EXPECT_TRUE(platform::PinKey().Write(file));
    EXPECT_EQ(steps, (QStringList{u"32, named: 0"_s, u"folder, named: 1"_s}));
}
