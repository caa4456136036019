#include "platform/AtomicFile.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/FileSystem.h"
#include "platform/PlainFile.h"
#include "support/FileBytes.h"
#include "support/FileSizeLimit.h"
#include "support/FullDiskSizes.h"

using namespace Qt::StringLiterals;
using platform::AtomicFile;

namespace {

class AtomicFileTest : public ::testing::Test {
  protected:
    QString Path(const QString& name = u"target"_s) const { return folder.filePath(name); }
    QByteArray EncodedPath(const QString& name) const { return QFile::encodeName(Path(name)); }
    QStringList Names() const {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir folder;
    QString error;
};

/// Content without two equal blocks.
QByteArray Bytes(qint64 size) {
    QByteArray bytes(size, '\0');
    for (qint64 at = 0; at < size; ++at) bytes[at] = static_cast<char>(at * 31 + at / 251);
    return bytes;
}

}  // namespace

TEST_F(AtomicFileTest, ReplacesTheContentAndKeepsTheMode) {
    WriteBytes(Path(), "old and longer");
    ASSERT_EQ(::chmod(EncodedPath(u"target"_s).constData(), 0640), 0);
    EXPECT_TRUE(platform::ReplaceFile(Path(), "new", error));
    EXPECT_EQ(ReadBytes(Path()), "new");
    struct stat state = {};
    ASSERT_EQ(::stat(EncodedPath(u"target"_s).constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0640U);
    EXPECT_EQ(Names(), QStringList{u"target"_s});
}

TEST_F(AtomicFileTest, EveryFullDiskLeavesTheOldFileAndNothingBesideIt) {
    for (const qint64 size : kSizesAroundBuffers) {
        WriteBytes(Path(), "old");
        for (const qint64 limit : FullAfter(size)) {
            bool replaced = true;
            error.clear();
            {
                const FileSizeLimit full(limit);
                replaced = platform::ReplaceFile(Path(), Bytes(size), error);
            }
            EXPECT_FALSE(replaced) << size << " bytes, full after " << limit;
            EXPECT_FALSE(error.isEmpty()) << size << " bytes, full after " << limit;
            EXPECT_EQ(ReadBytes(Path()), "old") << size << " bytes, full after " << limit;
            EXPECT_EQ(Names(), QStringList{u"target"_s});
        }
        EXPECT_TRUE(platform::ReplaceFile(Path(), Bytes(size), error));
        EXPECT_EQ(ReadBytes(Path()), Bytes(size));
    }
}

TEST_F(AtomicFileTest, EveryFullDiskUnderACopyLeavesTheOldFileAndNothingBesideIt) {
    const platform::LocalFileSystem files;
    const QStringList names{u"source"_s, u"target"_s};
    for (const qint64 size : kSizesAroundBuffers) {
        WriteBytes(Path(u"source"_s), Bytes(size));
        WriteBytes(Path(), "old");
        for (const qint64 limit : FullAfter(size)) {
            bool copied = true;
            {
                const FileSizeLimit full(limit);
                copied = files.CopyFile(Path(u"source"_s), Path());
            }
            EXPECT_FALSE(copied) << size << " bytes, full after " << limit;
            EXPECT_EQ(ReadBytes(Path()), "old") << size << " bytes, full after " << limit;
            EXPECT_EQ(Names(), names);
        }
        EXPECT_TRUE(files.CopyFile(Path(u"source"_s), Path()));
        EXPECT_EQ(ReadBytes(Path()), Bytes(size));
    }
}

TEST_F(AtomicFileTest, WithoutCommitNothingIsReplaced) {
    WriteBytes(Path(), "old");
    {
        AtomicFile file(Path());
        ASSERT_TRUE(file.Open());
        EXPECT_TRUE(file.Write("new"));
        EXPECT_EQ(ReadBytes(Path()), "old");
    }
    EXPECT_EQ(ReadBytes(Path()), "old");
    EXPECT_EQ(Names(), QStringList{u"target"_s});
}

TEST_F(AtomicFileTest, FolderPipeAndDeviceAreNotReplaced) {
    ASSERT_TRUE(QDir().mkdir(Path(u"folder"_s)));
    ASSERT_EQ(::mkfifo(EncodedPath(u"pipe"_s).constData(), 0600), 0);
    // A device of its own, since the machine's could be replaced by a failure. Where that is not allowed, a second
    // pipe.
    const bool made = ::mknod(EncodedPath(u"device"_s).constData(), S_IFCHR | 0600, makedev(1, 3)) == 0;
    ASSERT_TRUE(made || ::mkfifo(EncodedPath(u"device"_s).constData(), 0600) == 0);
    ASSERT_EQ(::symlink("device", EncodedPath(u"link"_s).constData()), 0);
    const QStringList names = Names();
    for (const QString& name : names) {
        EXPECT_FALSE(platform::ReplaceFile(Path(name), "new", error)) << name.toStdString();
        EXPECT_EQ(error, u"ファイルではありません。"_s) << name.toStdString();
    }
    EXPECT_EQ(Names(), names);
    EXPECT_TRUE(QFileInfo(Path(u"folder"_s)).isDir());
    for (const QString& name : {u"pipe"_s, u"device"_s, u"link"_s})
        EXPECT_FALSE(QFileInfo(Path(name)).isFile()) << name.toStdString();
    EXPECT_TRUE(QFileInfo(Path(u"link"_s)).isSymLink());
}

TEST_F(AtomicFileTest, LinkIsFollowedOrRefusedAndNeverReplaced) {
    WriteBytes(Path(u"pointed"_s), "old");
    ASSERT_EQ(::symlink(EncodedPath(u"pointed"_s).constData(), EncodedPath(u"link"_s).constData()), 0);
    ASSERT_EQ(::symlink(EncodedPath(u"missing"_s).constData(), EncodedPath(u"dangling"_s).constData()), 0);
    for (const QString& name : {u"link"_s, u"dangling"_s}) {
        AtomicFile refusing(Path(name), AtomicFile::Links::Refuse);
        EXPECT_FALSE(refusing.Open());
        EXPECT_EQ(refusing.ErrorText(), u"リンクは置き換えません。"_s);
        EXPECT_FALSE(platform::LocalFileSystem().CopyFile(Path(u"pointed"_s), Path(name)));
    }
    EXPECT_EQ(ReadBytes(Path(u"pointed"_s)), "old");
    EXPECT_FALSE(QFile::exists(Path(u"missing"_s)));
    EXPECT_TRUE(platform::ReplaceFile(Path(u"link"_s), "new", error));
    EXPECT_EQ(ReadBytes(Path(u"pointed"_s)), "new");
    EXPECT_TRUE(QFileInfo(Path(u"link"_s)).isSymLink());
}

TEST_F(AtomicFileTest, MissingFolderIsAnError) {
    EXPECT_FALSE(platform::ReplaceFile(Path(u"no/where"_s), "new", error));
    EXPECT_FALSE(error.isEmpty());
}

TEST_F(AtomicFileTest, AFailedRenameIsReported) {
    AtomicFile file(Path());
    ASSERT_TRUE(file.Open());
    ASSERT_TRUE(file.Write("new"));
    ASSERT_TRUE(QDir().mkpath(Path(u"target/sub"_s)));
    EXPECT_FALSE(file.Commit());
    EXPECT_FALSE(file.ErrorText().isEmpty());
    EXPECT_EQ(Names(), QStringList{u"target"_s});
}

TEST_F(AtomicFileTest, AFailedReadOfTheSourceIsNoEndOfIt) {
    const QString unreadable = u"/proc/self/mem"_s;  // a plain file whose first bytes can't be read
    WriteBytes(Path(), "old");
    WriteBytes(Path(u"empty"_s), "");
    EXPECT_FALSE(platform::LocalFileSystem().CopyFile(unreadable, Path()));
    EXPECT_EQ(ReadBytes(Path()), "old");
    EXPECT_FALSE(platform::SameContent(unreadable, Path(u"empty"_s)));
    EXPECT_FALSE(platform::SameContent(Path(u"empty"_s), unreadable));
}

TEST_F(AtomicFileTest, CopyOfAPipeOrADeviceFailsAtOnce) {
    ASSERT_EQ(::mkfifo(EncodedPath(u"pipe"_s).constData(), 0600), 0);
    const platform::LocalFileSystem files;
    for (const QString& source : {Path(u"pipe"_s), u"/dev/zero"_s, folder.path()})
        EXPECT_FALSE(files.CopyFile(source, Path())) << source.toStdString();
    EXPECT_EQ(Names(), QStringList{u"pipe"_s});
}

TEST_F(AtomicFileTest, ContentsAreTheSameOnlyByteForByte) {
    for (const qint64 size : kSizesAroundBuffers) {
        QByteArray bytes = Bytes(size);
        WriteBytes(Path(u"a"_s), bytes);
        WriteBytes(Path(u"b"_s), bytes);
        EXPECT_TRUE(platform::SameContent(Path(u"a"_s), Path(u"b"_s))) << size;
        WriteBytes(Path(u"b"_s), bytes.chopped(1));
        EXPECT_FALSE(platform::SameContent(Path(u"a"_s), Path(u"b"_s))) << size;
        EXPECT_FALSE(platform::SameContent(Path(u"b"_s), Path(u"a"_s))) << size;
        bytes[size - 1] = static_cast<char>(bytes[size - 1] + 1);
        WriteBytes(Path(u"b"_s), bytes);
        EXPECT_FALSE(platform::SameContent(Path(u"a"_s), Path(u"b"_s))) << size;
    }
    EXPECT_FALSE(platform::SameContent(Path(u"a"_s), Path(u"none"_s)));
}

TEST_F(AtomicFileTest, CopyOfASourceThatCannotBeReadHasItsReason) {
    const QList<std::pair<QString, QString>> reasons = {{Path(u"missing"_s), u"%1 がありません。"_s},
                                                        {folder.path(), u"%1 はファイルではありません。"_s}};
    for (const auto& [source, reason] : reasons) {
        AtomicFile target(Path());
        EXPECT_FALSE(platform::ReplaceByCopy(source, target));
        EXPECT_EQ(target.ErrorText(), reason.arg(source));
    }
    EXPECT_EQ(Names(), QStringList());
}
