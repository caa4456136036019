#include "setup/checks/Checks.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>

#include "platform/registry/FileRegistry.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;

namespace {

const QString kOther = u"nobody"_s;
constexpr uid_t kOtherId = 65534;

/// A file in a folder that every user can enter, unlike the usual folder of the tests.
class UserAccessTest : public testing::Test {
  protected:
    UserAccessTest() {
        WriteBytes(file, "x");
        SetMode(folder.path(), 0755);
        kept = qgetenv("MEIBO_USER_REGISTRY");
    }
    ~UserAccessTest() override { qputenv("MEIBO_USER_REGISTRY", kept); }

    static void SetMode(const QString& path, mode_t mode) {
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0);
    }
    /// The other user's rights: "r", "w", "x", and "+" if files can be created in the folder.
    QString Rights(mode_t mode) {
        SetMode(file, mode);
        const setup::UserAccess user(kOther);
        return QString(user.MayRead(file) ? u"r"_s : u"-"_s) + (user.MayWrite(file) ? u"w"_s : u"-"_s) +
               (user.MayRun(file) ? u"x"_s : u"-"_s) + (user.MayMakeFilesIn(folder.path()) ? u"+"_s : u"-"_s);
    }

    QTemporaryDir folder{u"/tmp/meibo-XXXXXX"_s};
    const QString file = folder.filePath(u"file"_s);
    QByteArray kept;
};

}  // namespace

TEST_F(UserAccessTest, AnotherUserGoesByTheModeForOthers) {
    EXPECT_EQ(Rights(0770), u"----"_s);
    EXPECT_EQ(Rights(0774), u"r---"_s);
    EXPECT_EQ(Rights(0772), u"-w--"_s);
    EXPECT_EQ(Rights(0771), u"----"_s) << "a program is read, too";
    EXPECT_EQ(Rights(0775), u"r-x-"_s);
    SetMode(folder.path(), 0777);
    EXPECT_EQ(Rights(0606), u"rw-+"_s);
}

TEST_F(UserAccessTest, FolderOnTheWayThatMayNotBePassedHidesAll) {
    SetMode(folder.path(), 0776);
    EXPECT_EQ(Rights(0777), u"----"_s);
}

TEST_F(UserAccessTest, AnotherUsersOwnModeAndGroupGoBeforeThatForOthers) {
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
    const QByteArray path = QFile::encodeName(file);
    ASSERT_EQ(::chown(path.constData(), kOtherId, 0), 0);
    EXPECT_EQ(Rights(0477), u"r---"_s);
    ASSERT_EQ(::chown(path.constData(), 0, getpwuid(kOtherId)->pw_gid), 0);
    EXPECT_EQ(Rights(0727), u"-w--"_s);
}

TEST_F(UserAccessTest, MissingFileGivesNothing) {
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_FALSE(setup::UserAccess(kOther).MayRead(file));
    EXPECT_FALSE(setup::UserAccess({}).MayRead(file));
}

TEST_F(UserAccessTest, CurrentUserHasTheirOwnRights) {
    const QString runner = QString::fromLocal8Bit(getpwuid(getuid())->pw_name);
    SetMode(file, 0600);
    for (const QString& name : {QString(), runner}) {
        EXPECT_TRUE(setup::UserAccess(name).MayRead(file));
        EXPECT_TRUE(setup::UserAccess(name).MayMakeFilesIn(folder.path()));
        EXPECT_FALSE(setup::UserAccess(name).MayRun(file));
    }
}

TEST_F(UserAccessTest, UnknownNameMeansTheCurrentUser) {
    EXPECT_TRUE(setup::UserAccess({}).IsKnown());
    EXPECT_TRUE(setup::UserAccess(kOther).IsKnown());
    EXPECT_FALSE(setup::UserAccess(u"no such user"_s).IsKnown());
    SetMode(file, 0600);
    EXPECT_TRUE(setup::UserAccess(u"no such user"_s).MayRead(file));
}

TEST_F(UserAccessTest, RegistryOfAnotherUserIsInTheirHomeUnlessTheEnvironmentNamesOne) {
    qunsetenv("MEIBO_USER_REGISTRY");
    const QString home = QFile::decodeName(getpwuid(kOtherId)->pw_dir);
    EXPECT_EQ(setup::UserAccess(kOther).RegistryFile(), home + u"/.config/youin-meibo/registry"_s);
    EXPECT_EQ(setup::UserAccess({}).RegistryFile(), platform::UserRegistryFile());
    qputenv("MEIBO_USER_REGISTRY", "/elsewhere/registry");
    EXPECT_EQ(setup::UserAccess(kOther).RegistryFile(), u"/elsewhere/registry"_s);
}
