#include "platform/FileRights.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "support/FileBytes.h"
#include "support/GivenAway.h"

using namespace Qt::StringLiterals;

namespace {

class PrivateFolder : public ::testing::Test {
  protected:
    PrivateFolder() {
        QDir().mkpath(Own(u"/conf"_s));
        WriteBytes(Own(u"/conf/a"_s), "a");
    }
    QString Own(const QString& path = {}) const { return folder.filePath(u"users"_s) + path; }
    QStringList Faults(std::optional<uid_t> owner = geteuid()) const {
        return platform::PrivateFolderFaults(Own(), owner);
    }
    /// Description of the error of ClaimPrivateFolder; empty on success.
    QString UsageError() const {
        try {
            platform::ClaimPrivateFolder(Own());
        } catch (const platform::RuntimeError& error) {
            return error.Description();
        }
        return {};
    }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(PrivateFolder, IsClosedToOthersWithEveryFolderInIt) {
    SetModeOf(Own(), 02777);
    SetModeOf(Own(u"/conf"_s), 0775);
    EXPECT_EQ(Faults(), QStringList());
    EXPECT_EQ(ModeOf(Own()), 02777U) << "a look changes nothing";
    EXPECT_EQ(UsageError(), QString());
    EXPECT_EQ(ModeOf(Own()), 0700U);
    EXPECT_EQ(ModeOf(Own(u"/conf"_s)), 0700U);
}

TEST_F(PrivateFolder, MissingOneIsNoFailure) {
    QDir(Own()).removeRecursively();
    EXPECT_EQ(UsageError(), QString());
    EXPECT_FALSE(QFileInfo::exists(Own()));
}

TEST_F(PrivateFolder, LinksAndSpecialFilesAreNamed) {
    MakeLink(u"/nowhere"_s, Own(u"/conf/link"_s));
    ASSERT_EQ(::mkfifo(QFile::encodeName(Own(u"/pipe"_s)).constData(), 0600), 0);
    const QStringList faults{Own(u"/conf/link"_s) + u" はリンクです。"_s,
                             Own(u"/pipe"_s) + u" はファイルでもフォルダでもありません。"_s};
    EXPECT_EQ(Faults(), faults);
    EXPECT_EQ(Faults(std::nullopt), faults);
    EXPECT_EQ(UsageError(), faults.join(u'\n'));
}

TEST_F(PrivateFolder, FileWithAnotherNameIsNamed) {
    ASSERT_EQ(::link(QFile::encodeName(Own(u"/conf/a"_s)).constData(),
                     QFile::encodeName(folder.filePath(u"elsewhere"_s)).constData()),
              0);
    const QString fault = Own(u"/conf/a"_s) + u" には別の名前 (ハードリンク) があります。"_s;
    EXPECT_EQ(Faults(), QStringList{fault});
    EXPECT_EQ(UsageError(), fault);
}

TEST_F(PrivateFolder, LinkOrFileInPlaceOfTheFolderIsNamed) {
    QDir().rename(Own(), folder.filePath(u"other"_s));
    SetModeOf(folder.filePath(u"other"_s), 0755);
    MakeLink(folder.filePath(u"other"_s), Own());
    EXPECT_EQ(UsageError(), Own() + u" はリンクです。"_s);
    EXPECT_EQ(ModeOf(folder.filePath(u"other"_s)), 0755U);
    ASSERT_TRUE(QFile::remove(Own()));
    WriteBytes(Own(), "");
    EXPECT_EQ(UsageError(), Own() + u" はフォルダではありません。"_s);
}

TEST_F(PrivateFolder, FilesOfTheAdministratorAreTakenAndThoseOfOtherUsersAreNamed) {
    REQUIRE_SUPERUSER();
    GiveTo(kNobody, Own());
    EXPECT_EQ(Faults(kNobody), QStringList());
    EXPECT_EQ(Faults(0), QStringList{Own() + u" は利用者 nobody のものです。"_s});
    EXPECT_EQ(Faults(1), QStringList{Own() + u" は利用者 nobody のものです。"_s});
    EXPECT_EQ(Faults(std::nullopt), QStringList());
    GiveTo(4242, Own(u"/conf/a"_s));
    EXPECT_EQ(Faults(kNobody), QStringList{Own(u"/conf/a"_s) + u" は利用者 4242 のものです。"_s});
    GiveTo(0, Own());
    EXPECT_EQ(Faults(kNobody), QStringList{Own() + u" は利用者 root のものです。"_s});
}

TEST_F(PrivateFolder, MarkIsMadeOnceAndNeverThroughALink) {
    const platform::LocalFileSystem files;
    EXPECT_TRUE(files.CreateMark(Own(u"/mark"_s)));
    EXPECT_EQ(ModeOf(Own(u"/mark"_s)) & 077U, 0U);
    EXPECT_TRUE(files.CreateMark(Own(u"/mark"_s))) << "left by a start that was ended";
    MakeLink(Own(u"/conf/a"_s), Own(u"/link"_s));
    MakeLink(Own(u"/conf/none"_s), Own(u"/dangling"_s));
    ASSERT_EQ(::mkfifo(QFile::encodeName(Own(u"/pipe"_s)).constData(), 0600), 0);
    for (const QString& name : {u"/link"_s, u"/dangling"_s, u"/pipe"_s, u"/conf"_s, u"/no/where"_s})
        EXPECT_FALSE(files.CreateMark(Own(name))) << name.toStdString();
    EXPECT_EQ(ReadBytes(Own(u"/conf/a"_s)), "a");
    EXPECT_FALSE(QFileInfo::exists(Own(u"/conf/none"_s)));
}
